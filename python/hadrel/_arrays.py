# SPDX-License-Identifier: BSL-1.0
"""Arrays as callers have them, and as the extension takes them."""

from typing import Any, Callable, Iterable, Tuple

import numpy as np
import numpy.typing as npt

Floats = npt.NDArray[np.float64]


class HadrelError(ValueError):
    """Something that was asked for has no result."""


def numbers(values: Any, name: str) -> Floats:
    """Doubles in a row of memory; what they are called stands in the message."""
    try:
        return np.ascontiguousarray(values, dtype=np.float64)
    except (TypeError, ValueError) as reason:
        raise TypeError(f"{name}: expected numbers, got {values!r:.80}") from reason


def rows(values: Any, columns: int, name: str) -> Tuple[Floats, Tuple[int, ...]]:
    """The points one below the other, and the shape they came in without the last dimension."""
    array = np.asarray(values)
    if array.ndim == 0 or array.shape[-1] != columns:
        raise ValueError(f"{name}: expected shape (..., {columns}), got {array.shape}")
    return numbers(array, name).reshape(-1, columns), array.shape[:-1]


def vector(values: Any, length: int, name: str) -> Tuple[float, ...]:
    """One point as a tuple."""
    array = numbers(values, name)
    if array.shape != (length,):
        raise ValueError(f"{name}: expected {length} numbers, got shape {array.shape}")
    return tuple(float(value) for value in array)


def per_value(ask: Callable[[Floats], Floats], values: Any, name: str, reason: str,
              errcheck: bool) -> Any:
    """One result for each number: a float for a float, else an array of the same shape."""
    array = numbers(values, name)
    shape = np.shape(values)
    result = ask(array.reshape(-1))
    if errcheck:
        check(result, name, reason)
    return result.reshape(shape) if shape else float(result[0])


def check(result: Floats, name: str, reason: str) -> None:
    """Raises for the first row that is not a number."""
    flags = np.isnan(result) if result.ndim == 1 else np.isnan(result).any(axis=1)
    if flags.any():
        raise HadrelError(f"{name}[{int(flags.argmax())}]: {reason}")


def one_of(choice: str, choices: Iterable[str], name: str) -> str:
    if choice not in choices:
        raise ValueError(f"{name}: expected one of {', '.join(choices)}, got {choice!r}")
    return choice


def is_perpendicular(plane: str) -> bool:
    return one_of(plane, ("vertical", "perpendicular"), "plane") == "perpendicular"
