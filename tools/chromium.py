# SPDX-License-Identifier: BSL-1.0
"""Chromium without a window, for the tools that look at pages."""

import json
import os
import pathlib
import re
import select
import shutil
import subprocess
import sys
import time


class Browser:
    """Chromium, spoken to over a pipe: the protocol of its developer tools, messages that end with a zero."""

    def __init__(self, profile):
        to_browser, self.write_end = os.pipe()
        self.read_end, from_browser = os.pipe()
        program = shutil.which("chromium") or shutil.which("chromium-browser")
        if not program:
            sys.exit("There is no chromium; see tools/install-packages --browser")
        options = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                   "--disable-background-networking", "--disable-component-update", "--disable-sync",
                   "--disable-dev-shm-usage", "--remote-debugging-pipe", f"--user-data-dir={profile}"]

        def pass_pipes():  # the browser expects them as 3 and 4
            for end, place in ((os.dup2(to_browser, 20), 3), (os.dup2(from_browser, 21), 4)):
                os.dup2(end, place)

        self.process = subprocess.Popen([program, *options, "about:blank"], preexec_fn=pass_pipes,
                                        pass_fds=(3, 4, to_browser, from_browser),
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser)
        os.close(from_browser)
        self.buffer = b""
        self.number = 0
        self.events = []
        target = self.call("Target.createTarget", url="about:blank", session=None)["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True, session=None)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(f"{domain}.enable")

    def call(self, method, session="", **parameters):
        self.number += 1
        message = {"id": self.number, "method": method, "params": parameters}
        if session is not None:
            message["sessionId"] = self.session
        os.write(self.write_end, json.dumps(message).encode() + b"\0")
        while True:
            answer = self.message(300)
            if answer.get("id") == self.number:
                if "error" in answer:
                    sys.exit(f"The browser refuses {method}: {answer['error']['message']}")
                return answer["result"]
            self.events.append(answer)

    def message(self, seconds):
        while b"\0" not in self.buffer:
            if not select.select([self.read_end], [], [], seconds)[0]:
                sys.exit("The browser does not answer")
            self.buffer += os.read(self.read_end, 1 << 20)
        text, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(text)

    def wait_for(self, method):
        while True:
            for i, event in enumerate(self.events):
                if event.get("method") == method:
                    return self.events.pop(i)
            self.events.append(self.message(300))

    def value(self, expression):
        return self.call("Runtime.evaluate", expression=expression, awaitPromise=True,
                         returnByValue=True)["result"].get("value")

    def show(self, width, height, is_phone):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=2 if is_phone else 1,
                  mobile=is_phone)
        self.call("Emulation.setTouchEmulationEnabled", enabled=is_phone)

    def open(self, url):
        self.events.clear()
        self.call("Page.navigate", url=url)
        self.wait_for("Page.loadEventFired")

    def memory(self):
        """Proportional set size of the browser and its children (bytes), once it has calmed down."""
        time.sleep(1.5)
        children = {}
        for status in pathlib.Path("/proc").glob("[0-9]*/stat"):
            try:
                fields = status.read_text().rsplit(")", 1)[1].split()
            except OSError:
                continue
            children.setdefault(int(fields[1]), []).append(int(status.parent.name))
        total, todo = 0, [self.process.pid]
        while todo:
            process = todo.pop()
            todo += children.get(process, [])
            try:
                rollup = pathlib.Path(f"/proc/{process}/smaps_rollup").read_text()
                total += 1024 * int(re.search(r"^Pss:\s+(\d+)", rollup, re.M)[1])
            except (OSError, TypeError):
                continue
        return total

    def said(self):
        """What went to the console since the last page was opened."""
        return [event["params"] for event in self.events
                if event.get("method") in ("Log.entryAdded", "Runtime.exceptionThrown", "Runtime.consoleAPICalled")]

    def close(self):
        self.process.terminate()
        self.process.wait()
