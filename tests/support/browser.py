"""Chromium without a window, driven by its driver.

A page is opened from a file. What the pages print to the console and what they request
from elsewhere is collected."""

from __future__ import annotations

import json
from pathlib import Path
from typing import Any

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.remote.webelement import WebElement
from selenium.webdriver.support.ui import WebDriverWait

ARGUMENTS = [
    "--headless=new",
    "--no-sandbox",  # which root cannot use
    "--disable-gpu",
    "--disable-dev-shm-usage",
    "--disable-background-networking",
    "--disable-component-update",
    "--no-first-run",
]
WAIT = 20  # seconds, for what takes a fraction of one


class Browser:
    def __init__(self) -> None:
        options = webdriver.ChromeOptions()
        for each in ARGUMENTS:
            options.add_argument(each)
        logs = {"browser": "ALL", "performance": "ALL"}
        options.set_capability("goog:loggingPrefs", logs)
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)

    def close(self) -> None:
        self.driver.quit()

    def open(self, path: Path, width: int = 1400, height: int = 900) -> None:
        self.resize(width, height)
        self.emulate()
        self.driver.get(path.as_uri())

    def resize(self, width: int, height: int) -> None:
        metrics = {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False}
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)

    def emulate(self, media: str = "", colors: str = "light") -> None:
        features = [{"name": "prefers-color-scheme", "value": colors}]
        settings = {"media": media, "features": features}
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", settings)

    def all(self, selector: str) -> list[WebElement]:
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector: str) -> WebElement:
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def run(self, script: str, *arguments: Any) -> Any:
        return self.driver.execute_script(script, *arguments)

    def focus(self, element: WebElement) -> None:
        self.run("arguments[0].focus()", element)

    def hover(self, element: WebElement) -> None:
        ActionChains(self.driver).move_to_element(element).perform()

    def press(self, *keys: str) -> None:
        ActionChains(self.driver).send_keys(*keys).perform()

    def wait(self, condition: Any) -> Any:
        return WebDriverWait(self.driver, WAIT, 0.02).until(lambda _: condition())

    def texts(self, selector: str) -> list[str]:
        script = "return [...document.querySelectorAll(arguments[0])].map((e) => e.textContent)"
        return self.run(script, selector)

    def console(self) -> list[str]:
        """What was printed since the last call."""
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self) -> list[str]:
        """The addresses that were requested since the last call."""
        events = [
            json.loads(each["message"])["message"] for each in self.driver.get_log("performance")
        ]
        return [
            event["params"]["request"]["url"]
            for event in events
            if event["method"] == "Network.requestWillBeSent"
        ]

    def print_page(self) -> None:
        self.driver.execute_cdp_cmd("Page.printToPDF", {"preferCSSPageSize": True})
