// SPDX-License-Identifier: BSL-1.0
"use strict";

/** An element of a drawing. */
function shape(name, attributes, text) {
  const node = document.createElementNS("http://www.w3.org/2000/svg", name);
  for (const [key, value] of Object.entries(attributes)) node.setAttribute(key, value);
  if (text !== undefined) node.textContent = text;
  return node;
}

/** The smallest of 1, 2, 5, 10, 20, ... that is not less. */
function niceStep(least) {
  const power = 10 ** Math.floor(Math.log10(least));
  return [1, 2, 5, 10].map(digit => digit * power).find(step => step >= least * (1 - 1e-9));
}

/**
 * A drawing in metres, x to the right and y up, that can be moved and zoomed. Metres are taken off the
 * middle before they become pixels: browsers draw in single precision, national coordinates need more.
 */
class View {
  /**
   * @param draw what to draw, by line(), circle(), text() and frame(), whenever the view has changed
   * @param onClick called with a place in metres
   */
  constructor(svg, draw, onClick) {
    Object.assign(this, {svg, draw, onClick, middle: [0, 0], scale: 1, box: [0, 0, 1, 1], pointers: new Map()});
    this.measure();
    this.isMoved = false;  // by the user: then it does not fit itself to new contents
    svg.addEventListener("pointerdown", event => this.press(event));
    svg.addEventListener("pointermove", event => this.move(event));
    svg.addEventListener("pointerup", event => this.release(event));
    svg.addEventListener("pointercancel", event => this.pointers.delete(event.pointerId));
    svg.addEventListener("wheel", event => {
      event.preventDefault();
      this.zoom(Math.exp(-event.deltaY / 400), [event.offsetX, event.offsetY]);
    }, {passive: false});
    const buttons = document.createElement("div");
    buttons.className = "zoom";
    for (const [sign, title, action] of [["+", "Zoom in", () => this.zoom(1.5)], ["\u2212", "Zoom out", () => this.zoom(1 / 1.5)],
                                         ["all", "Show everything", () => this.fit()]]) {
      const button = document.createElement("button");
      Object.assign(button, {textContent: sign, title, onclick: action});
      buttons.append(button);
    }
    svg.after(buttons);
    new ResizeObserver(() => this.isMoved ? this.redraw() : this.fit()).observe(svg);
  }

  /** Once for each drawing: asked between two shapes, the browser would lay out the page each time. */
  measure() {
    this.size = [this.svg.clientWidth, this.svg.clientHeight];
  }

  /** What is to be seen as a whole: left, lower, right and upper limit. */
  show(box) {
    this.box = box;
    this.fit();
  }

  fit() {
    this.measure();
    const [left, lower, right, upper] = this.box;
    const [width, height] = this.size;
    const margin = 30;  // for labels
    this.middle = [(left + right) / 2, (lower + upper) / 2];
    this.scale = Math.max(1e-6, Math.min((width - 2 * margin) / (right - left), (height - 2 * margin) / (upper - lower)));
    this.isMoved = false;
    this.redraw();
  }

  centreOn(place, scale) {
    this.middle = place;
    this.scale = Math.max(this.scale, scale);
    this.isMoved = true;
    this.redraw();
  }

  pixelsOf([x, y]) {
    const [width, height] = this.size;
    return [width / 2 + (x - this.middle[0]) * this.scale, height / 2 - (y - this.middle[1]) * this.scale];
  }

  metresOf([x, y]) {
    const [width, height] = this.size;
    return [this.middle[0] + (x - width / 2) / this.scale, this.middle[1] - (y - height / 2) / this.scale];
  }

  zoom(factor, [x, y] = this.size.map(length => length / 2)) {
    const fixed = this.metresOf([x, y]);
    this.scale = Math.min(2000, Math.max(1e-4, this.scale * factor));
    const moved = this.metresOf([x, y]);
    this.middle = this.middle.map((value, i) => value + fixed[i] - moved[i]);
    this.isMoved = true;
    this.redraw();
  }

  press(event) {
    this.svg.setPointerCapture(event.pointerId);
    this.pointers.set(event.pointerId, [event.offsetX, event.offsetY]);
    this.start = this.pointers.size === 1 ? [event.offsetX, event.offsetY] : null;  // two fingers never click
  }

  move(event) {
    const before = this.pointers.get(event.pointerId);
    if (!before) return;
    const now = [event.offsetX, event.offsetY];
    const isStill = this.start && Math.hypot(now[0] - this.start[0], now[1] - this.start[1]) < 5;
    if (isStill) return;
    this.start = null;
    this.pointers.set(event.pointerId, now);
    const other = [...this.pointers].find(([id]) => id !== event.pointerId);
    if (other) {
      const distanceTo = place => Math.hypot(place[0] - other[1][0], place[1] - other[1][1]);
      this.zoom(distanceTo(now) / Math.max(1, distanceTo(before)), other[1]);
    } else {
      this.middle = [this.middle[0] - (now[0] - before[0]) / this.scale, this.middle[1] + (now[1] - before[1]) / this.scale];
      this.isMoved = true;
      this.redraw();
    }
  }

  release(event) {
    this.pointers.delete(event.pointerId);
    if (this.start) this.onClick(this.metresOf([event.offsetX, event.offsetY]));
    this.start = null;
  }

  redraw() {
    this.measure();
    this.svg.replaceChildren();
    this.draw(this);
  }

  line(points, style, isClosed = false) {
    const path = points.map(point => this.pixelsOf(point).map(value => value.toFixed(2)).join(" ")).join("L");
    this.svg.append(shape("path", {d: "M" + path + (isClosed ? "Z" : ""), class: style}));
  }

  circle(place, radius, style) {
    const [cx, cy] = this.pixelsOf(place);
    const circle = shape("circle", {cx, cy, r: radius, class: style});
    this.svg.append(circle);
    return circle;
  }

  /** @param shift to the right and down (pixels) */
  text(words, place, style, shift = [6, -6], anchor = "start") {
    const [x, y] = this.pixelsOf(place);
    this.svg.append(shape("text", {x: x + shift[0], y: y + shift[1], class: style, "text-anchor": anchor}, words));
  }

  note(words) {
    this.svg.append(shape("text", {x: 6, y: 16, class: "label"}, words));
  }

  isVisible(place) {
    const [x, y] = this.pixelsOf(place);
    const [width, height] = this.size;
    return x >= 0 && y >= 0 && x <= width && y <= height;
  }

  /** Lines at round coordinates with their numbers, after the names of the directions. */
  frame(names) {
    const [width, height] = this.size;
    const step = niceStep(90 / this.scale);
    const decimals = Math.max(0, -Math.floor(Math.log10(step) + 1e-9));
    const [lowest, highest] = [this.metresOf([0, height]), this.metresOf([width, 0])];
    for (const axis of [0, 1]) {
      for (let i = Math.ceil(lowest[axis] / step); i * step <= highest[axis]; ++i) {
        const [x, y] = this.pixelsOf([i * step, i * step]);
        const words = `${names[axis]} ${(i * step).toFixed(decimals)}`;
        const ends = axis === 0 ? {x1: x, x2: x, y1: 0, y2: height} : {x1: 0, x2: width, y1: y, y2: y};
        const place = axis === 0 ? {x: x + 3, y: height - 4} : {x: 3, y: y - 3};
        this.svg.append(shape("line", {...ends, class: "grid"}), shape("text", {...place, class: "grid-text"}, words));
      }
    }
  }
}
