"""A headless Chromium, which checks of pages use as a person would."""
import base64
import contextlib
import json
import os
import re
import subprocess
import time
import urllib.request

ENTER, ESCAPE, DOWN, CONTROL = "\ue007", "\ue00c", "\ue015", "\ue009"


class Browser:
    """A session of Chromium through its driver. Its profile is in `folder`, its screenshots are left in `pictures`."""

    def __init__(self, folder, pictures):
        self.pictures = pictures
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE, text=True)
        port = None
        for line in self.driver.stdout:
            if match := re.search(r"successfully on port (\d+)", line):
                port = match[1]
                break
        self.base = f"http://127.0.0.1:{port}/session"
        arguments = ["--headless=new", "--use-angle=swiftshader", "--enable-unsafe-swiftshader",
                     "--disable-dev-shm-usage", "--window-size=1100,760", f"--user-data-dir={folder}/profile"]
        if os.geteuid() == 0:
            arguments.append("--no-sandbox")
        options = {"goog:chromeOptions": {"args": arguments}, "goog:loggingPrefs": {"browser": "ALL"}}
        value = self.post("", {"capabilities": {"alwaysMatch": options}})
        self.base += "/" + value["sessionId"]

    def post(self, path, body):
        request = urllib.request.Request(self.base + path, json.dumps(body).encode(),
                                         {"Content-Type": "application/json"})
        with urllib.request.urlopen(request, timeout=60) as answer:
            return json.load(answer)["value"]

    def end(self):
        with contextlib.suppress(OSError):
            urllib.request.urlopen(urllib.request.Request(self.base, method="DELETE"), timeout=20).close()
        self.driver.terminate()
        self.driver.wait(20)

    def open(self, file):
        self.post("/url", {"url": file.as_uri()})

    def run(self, script):
        return self.post("/execute/sync", {"script": script, "args": []})

    def wait_for(self, condition):
        """Waits until the expression is true, ten seconds at most."""
        end = time.monotonic() + 10
        while not (found := self.run("return " + condition)) and time.monotonic() < end:
            time.sleep(0.02)
        return found

    def enter_frame(self, selector):
        """What follows is done in a frame of the page; in the page itself again without a selector."""
        frame = self.post("/element", {"using": "css selector", "value": selector}) if selector else None
        self.post("/frame", {"id": frame})

    def press(self, *keys):
        actions = []
        for key in keys:
            actions += [{"type": "keyDown", "value": key}, {"type": "keyUp", "value": key}]
        self.post("/actions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})

    def draw(self):
        """Waits for what was changed: it is drawn, and stands where it is said to, with the next frames."""
        self.post("/execute/async", {"args": [], "script":
                  "const done = arguments[0]; requestAnimationFrame(() => requestAnimationFrame(done));"})

    def click(self, x, y, times=1):
        press = [{"type": "pointerDown", "button": 0}, {"type": "pointerUp", "button": 0}]
        move = {"type": "pointerMove", "duration": 0, "x": round(x), "y": round(y)}
        self.post("/actions", {"actions": [{"type": "pointer", "id": "mouse", "actions": [move] + press * times}]})

    def click_on(self, selector):
        self.click(*self.run(f"""const box = document.querySelector({json.dumps(selector)}).getBoundingClientRect();
            return [box.x + box.width / 2, box.y + box.height / 2];"""))

    def texts(self, selector):
        return self.run(f"return [...document.querySelectorAll({json.dumps(selector)})].map((e) => e.textContent)")

    def use_scheme(self, scheme):
        self.post("/goog/cdp/execute", {"cmd": "Emulation.setEmulatedMedia", "params": {
            "features": [{"name": "prefers-color-scheme", "value": scheme},
                         {"name": "prefers-reduced-motion", "value": "reduce"}]}})

    def complaints(self):
        return [entry["message"] for entry in self.post("/se/log", {"type": "browser"})]

    def picture(self, name, element=None):
        """A screenshot of the window or an element, which is left in the folder of pictures, too."""
        self.draw()
        place = ""
        if element:
            found = self.post("/element", {"using": "css selector", "value": element})
            place = "/element/" + next(iter(found.values()))
        with urllib.request.urlopen(self.base + place + "/screenshot", timeout=60) as answer:
            png = base64.b64decode(json.load(answer)["value"])
        self.pictures.mkdir(parents=True, exist_ok=True)
        (self.pictures / f"{name}.png").write_bytes(png)
        return png
