"""A browser without a window, driven through its DevTools protocol: JSON over two pipes."""
import base64
import fcntl
import itertools
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

TIMEOUT = 60  # seconds
KEY_CODES = {"Tab": 9, "Enter": 13, "Escape": 27, "End": 35, "Home": 36, "ArrowLeft": 37,
             "ArrowUp": 38, "ArrowRight": 39, "ArrowDown": 40}


def browser_path():
    return shutil.which("chromium") or shutil.which("chromium-browser")


class Browser:
    def __enter__(self):
        self.profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        commands, self.commands = os.pipe()
        self.replies, replies = os.pipe()
        # The browser reads from 3 and writes to 4.
        ends = [fcntl.fcntl(end, fcntl.F_DUPFD, 10) for end in (commands, replies)]
        os.close(commands)
        os.close(replies)

        def use_ends():
            os.dup2(ends[0], 3)
            os.dup2(ends[1], 4)

        self.process = subprocess.Popen(
            [browser_path(), "--headless", "--no-sandbox", "--disable-gpu", "--no-first-run",
             "--disable-dev-shm-usage", "--remote-debugging-pipe",
             f"--user-data-dir={self.profile.name}"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, preexec_fn=use_ends,
            pass_fds=(3, 4))
        for end in ends:
            os.close(end)
        self.numbers = itertools.count(1)
        self.rest = b""
        self.tabs = {}
        return self

    def __exit__(self, *_):
        self.call("Browser.close")
        self.process.wait(TIMEOUT)
        self.profile.cleanup()

    def call(self, method, session=None, **parameters):
        number = next(self.numbers)
        message = {"id": number, "method": method, "params": parameters}
        if session:
            message["sessionId"] = session
        os.write(self.commands, json.dumps(message).encode() + b"\0")
        deadline = time.monotonic() + TIMEOUT
        while True:
            reply = self.receive(deadline)
            if reply.get("id") == number:
                if "error" in reply:
                    raise RuntimeError(f"{method}: {reply['error']}")
                return reply["result"]

    def receive(self, deadline):
        """The next message; events go to their tab as well."""
        while b"\0" not in self.rest:
            if not select.select([self.replies], [], [], max(0, deadline - time.monotonic()))[0]:
                raise TimeoutError("the browser does not answer")
            self.rest += os.read(self.replies, 1 << 20)
        text, self.rest = self.rest.split(b"\0", 1)
        message = json.loads(text)
        if "method" in message and message.get("sessionId") in self.tabs:
            self.tabs[message["sessionId"]].on_event(message["method"], message["params"])
        return message

    def open(self, path):
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        return Tab(self, target, session, path)


class Tab:
    def __init__(self, browser, target, session, path):
        self.browser, self.target, self.session = browser, target, session
        self.errors = []
        self.is_loaded = False
        browser.tabs[session] = self
        for domain in ("Page", "Runtime", "Log"):
            self.call(domain + ".enable")
        self.resize(1440, 1000)
        self.call("Page.navigate", url=path.as_uri())
        self.wait_for(lambda: self.is_loaded)

    def close(self):
        del self.browser.tabs[self.session]
        self.browser.call("Target.closeTarget", targetId=self.target)

    def call(self, method, **parameters):
        return self.browser.call(method, self.session, **parameters)

    def on_event(self, method, parameters):
        if method == "Page.loadEventFired":
            self.is_loaded = True
        elif method == "Runtime.exceptionThrown":
            details = parameters["exceptionDetails"]
            self.errors.append(details.get("exception", details).get("description", str(details)))
        elif method == "Log.entryAdded" and parameters["entry"]["level"] == "error":
            self.errors.append(parameters["entry"]["text"])
        elif method == "Runtime.consoleAPICalled" and parameters["type"] == "error":
            self.errors.append(str(parameters["args"]))

    def wait_for(self, condition):
        deadline = time.monotonic() + TIMEOUT
        while not condition():
            self.browser.receive(deadline)

    def value(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def text(self, selector):
        return self.value(f"document.querySelector({json.dumps(selector)}).textContent")

    def key(self, key):
        text = {"text": key} if len(key) == 1 else {}
        for kind in ("keyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key,
                      windowsVirtualKeyCode=KEY_CODES.get(key, ord(key[0].upper())), **text)
            text = {}

    def type(self, text):
        self.call("Input.insertText", text=text)

    def click(self, selector):
        box = self.value(f"(() => {{const e = document.querySelector({json.dumps(selector)});"
                         "e.scrollIntoView({block: 'center'});"
                         "return e.getBoundingClientRect().toJSON()})()")
        self.click_at(box["x"] + box["width"] / 2, box["y"] + box["height"] / 2)

    def click_at(self, x, y):
        for kind in ("mousePressed", "mouseReleased"):
            self.call("Input.dispatchMouseEvent", type=kind, x=x, y=y, button="left", clickCount=1)

    def wheel(self, x, y, delta, ctrl=False):
        self.call("Input.dispatchMouseEvent", type="mouseWheel", x=x, y=y, deltaX=0, deltaY=delta,
                  modifiers=2 if ctrl else 0)

    def resize(self, width, height):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=1, mobile=False)
        # Sizes follow with the next frame.
        self.call("Runtime.evaluate", awaitPromise=True, expression=(
            "new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)))"))

    def screenshot(self, path, whole=False):
        result = self.call("Page.captureScreenshot", captureBeyondViewport=whole)
        path.write_bytes(base64.b64decode(result["data"]))

    def print_as(self, path):
        self.value("dispatchEvent(new Event('beforeprint'))")
        self.call("Emulation.setEmulatedMedia", media="print")
        self.screenshot(path, whole=True)
