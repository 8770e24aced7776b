"""Opens pages of orvel-inspect in headless Chromium: browser.py PROGRAM SCREENSHOTS

At three widths, light and dark: nothing is written to the console and nothing asked of the network,
the canvas shows something, the switches change it, no text is smaller than 12 pixels and none is
wider than the window. The screenshots are kept.
"""

import json
import os
import subprocess
import sys
import tempfile
import urllib.parse

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.service import Service
    from selenium.webdriver.common.by import By
    from selenium.webdriver.common.keys import Keys
except ImportError:
    sys.exit(77)  # ctest takes it for a skipped test

TETRAHEDRON = "v 0 0 0\nv 3 0 0\nv 0 4 0\nv 0 0 5\nf 1 3 2\nf 1 2 4\nf 1 4 3\nf 2 3 4\n"
POINTS = "v 0 0 0\nv 3 0 0\nv 0 4 0\nv 0 0 5\nv 1 1 1\n"

# How many pixels of the canvas differ from its first one.
COLOURED = """
const canvas = document.querySelector('#view canvas');
const flat = document.createElement('canvas');
[flat.width, flat.height] = [canvas.width, canvas.height];
const g = flat.getContext('2d');
g.drawImage(canvas, 0, 0);
const data = new Uint32Array(g.getImageData(0, 0, flat.width, flat.height).data.buffer);
return data.reduce((count, pixel) => count + (pixel !== data[0] ? 1 : 0), 0);
"""

SMALL_TEXT = """
const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
const small = [];
while (walker.nextNode()) {
  const node = walker.currentNode, parent = node.parentElement;
  if (!node.data.trim() || parent.closest('script') || !parent.getClientRects().length) continue;
  let size = parseFloat(getComputedStyle(parent).fontSize);
  const svg = parent.closest('svg');
  if (svg && svg.viewBox.baseVal.width) {
    size *= svg.getBoundingClientRect().width / svg.viewBox.baseVal.width;
  }
  if (size < 11.99) small.push(node.data.trim() + ': ' + size);
}
return small;
"""

OVERFLOW = "return document.documentElement.scrollWidth - document.documentElement.clientWidth;"


def browser(folder, webgl):
    options = webdriver.ChromeOptions()
    for option in ("--headless", "--no-sandbox", "--no-first-run", "--disable-background-networking",
                   "--disable-component-update", "--disable-sync", "--user-data-dir=" + folder):
        options.add_argument(option)
    if webgl:
        options.add_argument("--use-angle=swiftshader")
        options.add_argument("--enable-unsafe-swiftshader")
    else:
        options.add_argument("--disable-gpu")
        options.add_argument("--disable-3d-apis")
    options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
    return webdriver.Chrome(service=Service("chromedriver"), options=options)


def show(driver, path, width, scheme):
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                           {"width": width, "height": 1000, "deviceScaleFactor": 1,
                            "mobile": width < 600})
    driver.execute_cdp_cmd("Emulation.setEmulatedMedia",
                           {"features": [{"name": "prefers-color-scheme", "value": scheme}]})
    driver.get("file://" + urllib.parse.quote(path))
    settle(driver)


def settle(driver):
    """Two frames, after which what was asked to be drawn is drawn."""
    driver.execute_async_script("requestAnimationFrame(() => requestAnimationFrame(arguments[0]))")


def complaints(driver):
    """What the page wrote to the console. Notes of the software renderer about its own speed are
    not the page's."""
    return [entry["message"] for entry in driver.get_log("browser")
            if "GPU stall due to ReadPixels" not in entry["message"]]


def requests(driver):
    urls = []
    for entry in driver.get_log("performance"):
        message = json.loads(entry["message"])["message"]
        if message["method"] == "Network.requestWillBeSent":
            urls.append(message["params"]["request"]["url"])
    return [url for url in urls if url.startswith(("http", "ws", "ftp"))]


def check_switches(driver):
    def count():
        settle(driver)
        return driver.execute_script(COLOURED)

    boxes = driver.find_elements(By.CSS_SELECTOR, "#controls input")
    names = [box.find_element(By.XPATH, "..").text for box in boxes]
    assert any("hull" in name for name in names), names
    for box, name in zip(boxes, names):
        before = driver.find_element(By.CSS_SELECTOR, "#view canvas").screenshot_as_png
        box.click()
        settle(driver)
        after = driver.find_element(By.CSS_SELECTOR, "#view canvas").screenshot_as_png
        # A part may hide behind another one: with all others off it shows.
        if before == after:
            others = [other for other in boxes if other != box and other.is_selected()]
            for other in others:
                other.click()
            alone = count()
            box.click()
            assert count() != alone, "the switch does nothing: " + name
            box.click()
            for other in others:
                other.click()
        box.click()
    on = [box for box in boxes if box.is_selected()]
    for box in on:
        box.click()
    assert count() == 0, "with all parts off there is still something"
    for box in on:
        box.click()
    assert count() > 500


def check_keys(driver):
    view = driver.find_element(By.ID, "view")
    before = view.screenshot_as_png
    for key in (Keys.ARROW_LEFT, Keys.ARROW_UP, "+", "1", "2", "3", "0"):
        view.send_keys(key)
        settle(driver)
        after = view.screenshot_as_png
        assert after != before, "the key does nothing: " + repr(key)
        before = after
    bar = driver.find_element(By.ID, "scale")
    assert bar.text.strip() and 10 < bar.size["width"], "no scale bar"


def check_page(driver, path, name, folder):
    for width in (400, 800, 1600):
        for scheme in ("light", "dark"):
            where = "%s, %d pixels, %s" % (name, width, scheme)
            show(driver, path, width, scheme)
            if name != "volume":
                assert driver.execute_script(COLOURED) > 500, "an empty canvas: " + where
                check_switches(driver)
                check_keys(driver)
            small = driver.execute_script(SMALL_TEXT)
            assert not small, "small text: %s: %s" % (where, small[:3])
            assert driver.execute_script(OVERFLOW) <= 0, "wider than the window: " + where
            driver.save_screenshot(os.path.join(folder, "%s-%d-%s.png" % (name, width, scheme)))
            said = complaints(driver)
            assert not said, "%s: %s" % (where, said)
            asked = requests(driver)
            assert not asked, "%s: %s" % (where, asked)


def check_without_webgl(path, folder):
    with tempfile.TemporaryDirectory() as profile:
        driver = browser(profile, webgl=False)
        try:
            show(driver, path, 800, "light")
            assert driver.find_element(By.ID, "still").is_displayed(), "no still picture"
            assert not driver.find_element(By.ID, "view").is_displayed()
            driver.save_screenshot(os.path.join(folder, "still.png"))
        finally:
            driver.quit()


def main(program, screenshots):
    os.makedirs(screenshots, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder:
        pages = {}
        for name, text, words in (("mesh", TETRAHEDRON, []), ("points", POINTS, []),
                                  ("volume", TETRAHEDRON, ["volume", "--cells", "20"])):
            mesh = os.path.join(folder, name + ".obj")
            with open(mesh, "w") as file:
                file.write(text)
            pages[name] = os.path.join(folder, name + ".html")
            subprocess.run([program, *words, mesh, "--quiet", "--report", pages[name]], check=True)
        driver = browser(os.path.join(folder, "profile"), webgl=True)
        try:
            for name, path in pages.items():
                check_page(driver, path, name, screenshots)
        finally:
            driver.quit()
        check_without_webgl(pages["mesh"], screenshots)


main(*sys.argv[1:])
