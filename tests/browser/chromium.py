"""A headless Chromium that is driven over a pipe by the protocol of its developer tools. Needs nothing but Python."""
import base64
import json
import os
import shutil
import subprocess
import tempfile


class Chromium:
    """Pages are looked at one after the other, in one window."""

    def __init__(self):
        program = shutil.which("chromium") or shutil.which("chromium-browser") or shutil.which("google-chrome")
        if not program:
            raise FileNotFoundError("chromium is not installed")
        self._profile = tempfile.mkdtemp()
        to_read, self._write = os.pipe()
        self._read, to_write = os.pipe()

        def hand_over():
            # The browser reads its commands from descriptor 3 and writes to 4.
            read, write = os.dup(to_read), os.dup(to_write)
            os.dup2(read, 3)
            os.dup2(write, 4)

        self._process = subprocess.Popen(
            [program, "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-extensions",
             "--remote-debugging-pipe", f"--user-data-dir={self._profile}", "about:blank"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, close_fds=False, preexec_fn=hand_over)
        os.close(to_read)
        os.close(to_write)
        self._buffer = b""
        self._last = 0
        self.events = []
        self._session = None
        targets = self.call("Target.getTargets")["targetInfos"]
        page = next(target for target in targets if target["type"] == "page")
        self._session = self.call("Target.attachToTarget", targetId=page["targetId"], flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(domain + ".enable")

    def close(self):
        self._process.terminate()
        self._process.wait()
        shutil.rmtree(self._profile, ignore_errors=True)

    def _receive(self):
        while b"\0" not in self._buffer:
            got = os.read(self._read, 1 << 20)
            if not got:
                raise RuntimeError("the browser ended")
            self._buffer += got
        message, self._buffer = self._buffer.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self._last += 1
        message = {"id": self._last, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        os.write(self._write, json.dumps(message).encode() + b"\0")
        while True:
            answer = self._receive()
            if answer.get("id") == self._last:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']['message']}")
                return answer["result"]
            self.events.append(answer)

    def open(self, file):
        """Loads the file and waits until it is there. Gives back what the browser complains of, and what it asked for."""
        self.events = []
        self.call("Page.navigate", url="file://" + os.path.abspath(file))
        while not any(event["method"] == "Page.loadEventFired" for event in self.events):
            self.events.append(self._receive())
        self.evaluate("1")
        complaints = [event["params"]["entry"]["text"] for event in self.events if event["method"] == "Log.entryAdded"]
        complaints += [str(event["params"]) for event in self.events
                       if event["method"] in ("Runtime.exceptionThrown", "Runtime.consoleAPICalled", "Page.javascriptDialogOpening")]
        requests = [event["params"]["request"]["url"] for event in self.events if event["method"] == "Network.requestWillBeSent"]
        return complaints, requests

    def evaluate(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True)
        if "exceptionDetails" in result:
            raise RuntimeError(result["exceptionDetails"]["exception"]["description"])
        return result["result"].get("value")

    def show(self, width, height, dark):
        """Sets the size of the window and the person's choice of light or dark."""
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=width < 600)
        self.call("Emulation.setEmulatedMedia",
                  features=[{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}])

    def photograph(self, file, whole=True):
        picture = self.call("Page.captureScreenshot", format="png", captureBeyondViewport=whole)
        with open(file, "wb") as out:
            out.write(base64.b64decode(picture["data"]))
