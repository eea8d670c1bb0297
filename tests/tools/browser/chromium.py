# SPDX-License-Identifier: Apache-2.0
"""A browser without a window, spoken to over a pipe (the DevTools protocol)."""
import base64
import json
import os
import subprocess
import tempfile


class Browser:
    def __init__(self):
        self.profile = tempfile.TemporaryDirectory()
        to_read, self.to_browser = os.pipe()
        self.from_browser, to_write = os.pipe()

        def take_pipes():  # the browser reads from 3 and writes to 4
            read, write = os.dup(to_read), os.dup(to_write)
            os.dup2(read, 3)
            os.dup2(write, 4)

        self.process = subprocess.Popen(
            ["chromium", "--headless=new", "--no-sandbox", "--disable-gpu",
             "--remote-debugging-pipe", "--disable-dev-shm-usage", "--hide-scrollbars",
             "--user-data-dir=" + self.profile.name, "about:blank"],
            preexec_fn=take_pipes, close_fds=False, stderr=subprocess.DEVNULL)
        os.close(to_read)
        os.close(to_write)
        self.rest = b""
        self.last = 0
        self.session = None
        self.events = []
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self.session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Network", "Runtime"):
            self.call(domain + ".enable")

    def read(self):
        while b"\0" not in self.rest:
            more = os.read(self.from_browser, 1 << 20)
            if not more:
                raise RuntimeError("the browser has ended")
            self.rest += more
        message, self.rest = self.rest.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        self.last += 1
        message = {"id": self.last, "method": method, "params": parameters}
        if self.session:
            message["sessionId"] = self.session
        os.write(self.to_browser, json.dumps(message).encode() + b"\0")
        while True:
            answer = self.read()
            if answer.get("id") != self.last:
                self.events.append(answer)
            elif "error" in answer:
                raise RuntimeError(f"{method}: {answer['error']}")
            else:
                return answer["result"]

    def open(self, path):
        """Answers what was loaded besides the page."""
        self.events = []
        url = "file://" + os.path.abspath(path)
        self.call("Page.navigate", url=url)
        while not any(event.get("method") == "Page.loadEventFired" for event in self.events):
            self.events.append(self.read())
        requests = [event["params"]["request"]["url"] for event in self.events
                    if event.get("method") == "Network.requestWillBeSent"]
        return [request for request in requests if request != url]

    def look(self, width, scheme="light", media="screen"):
        """Shows the page in that width."""
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=900,
                  deviceScaleFactor=1, mobile=False)
        self.call("Emulation.setEmulatedMedia", media=media,
                  features=[{"name": "prefers-color-scheme", "value": scheme}])

    def run(self, script):
        answer = self.call("Runtime.evaluate", expression=script, returnByValue=True)
        if "exceptionDetails" in answer:
            raise RuntimeError(answer["exceptionDetails"])
        return answer["result"].get("value")

    def picture(self, path, most=6000):
        size = self.call("Page.getLayoutMetrics")["cssContentSize"]
        clip = {"x": 0, "y": 0, "width": size["width"], "height": min(size["height"], most),
                "scale": 1}
        data = self.call("Page.captureScreenshot", captureBeyondViewport=True, clip=clip)["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def print_to(self, path, inches):
        width, height = inches
        data = self.call("Page.printToPDF", paperWidth=width, paperHeight=height,
                         printBackground=True, preferCSSPageSize=False)["data"]
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def close(self):
        self.session = None
        self.call("Browser.close")
        self.process.wait()
        self.profile.cleanup()
