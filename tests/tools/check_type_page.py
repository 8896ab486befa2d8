"""Uses the page of the file types in a browser as a person would, and compares it with the vocabulary.

    check_type_page.py CCL-FIO

The exit status is 77 where the browser or its driver is missing. With CCL_SCREENSHOTS=DIRECTORY pictures of the page are left there.
"""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

PROGRAMS = {"chromium": "chromium", "chromedriver": "chromium-driver"}
LEFT_OUT = 77

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.service import Service
    from selenium.webdriver.common.by import By
    from selenium.webdriver.common.keys import Keys
    from selenium.webdriver.support.ui import Select, WebDriverWait
except ImportError:
    webdriver = None

SWITCHES = ["--headless=new", "--no-sandbox", "--disable-gpu", "--disable-background-networking", "--disable-sync",
            "--no-first-run", "--disable-dev-shm-usage"]


def left_out():
    """What is missing, or nothing."""
    missing = [f"{program} (Debian: {package})" for program, package in PROGRAMS.items() if not shutil.which(program)]
    if webdriver is None:
        missing.append("Selenium for Python (Debian: python3-selenium)")
    return missing


def output_of(*options):
    return subprocess.run([sys.argv[1], "type", *options], stdout=subprocess.PIPE, check=True).stdout


class Page(unittest.TestCase):
    page = b""
    vocabulary = {}

    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory(prefix="type_page.")
        cls.addClassCleanup(cls.folder.cleanup)
        path = pathlib.Path(cls.folder.name, "types.html")
        path.write_bytes(cls.page)
        cls.address = path.as_uri()
        options = webdriver.ChromeOptions()
        options.binary_location = shutil.which("chromium")
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        for switch in SWITCHES + [f"--user-data-dir={cls.folder.name}/profile"]:
            options.add_argument(switch)
        cls.driver = webdriver.Chrome(service=Service(shutil.which("chromedriver")), options=options)
        cls.addClassCleanup(cls.driver.quit)
        cls.types = cls.vocabulary["file_types"]

    def setUp(self):
        self.window(1400, "light")
        self.open()

    def tearDown(self):
        self.assertEqual(self.driver.get_log("browser"), [])

    def open(self, fragment=""):
        self.driver.get("about:blank")
        self.driver.get(self.address + fragment)

    def window(self, width, scheme):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                    {"features": [{"name": "prefers-color-scheme", "value": scheme}]})

    def one(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def shown(self):
        """The numbers of the types that can be seen, from the top."""
        return self.driver.execute_script(
            "return [...document.querySelectorAll('tbody tr')].filter((row) => row.offsetParent)"
            ".map((row) => Number(row.id.replace('type-', '')))")

    def expect_types(self, condition):
        expected = [row["value"] for row in self.types if condition(row)]
        self.assertEqual(self.shown(), expected)
        count = len(expected) if len(expected) != len(self.types) else ""
        self.assertEqual(self.one("#count").text, f"{count} of {len(self.types)} types".lstrip(" of"))
        return expected

    def search(self, text):
        field = self.one("#search")
        field.clear()
        field.send_keys(text)

    def class_of(self, row):
        found = [one for one in self.vocabulary["document_classes"] if one["name"] == row["document_class"]]
        return (found[0]["name"], found[0]["identifier"]) if found else ("", "")

    def searched(self, row):
        return "\n".join([row["name"], row["description"], *row["extensions"], *self.class_of(row)]).lower()

    def clipboard(self):
        """What a person would paste."""
        field = self.one("#search")
        field.clear()
        field.send_keys(Keys.CONTROL, "v")
        return field.get_attribute("value")

    def test_every_row_is_what_the_library_says_of_its_type(self):
        rows = self.driver.execute_script(
            "return [...document.querySelectorAll('tbody tr')].map((row) => ({cells: [...row.cells].map("
            "(cell) => cell.textContent.trim()), first: row.querySelector('b')?.textContent ?? null}))")
        self.assertEqual(len(rows), len(self.types))
        for row, expected in zip(rows, self.types):
            described = "" if expected["name"] == expected["description"] else f" described as {expected['description']}"
            self.assertEqual(row["cells"],
                             [str(expected["value"]), expected["name"] + described, " ".join(expected["extensions"]),
                              expected["editor"] or "", ", ".join(expected["traits"]),
                              " ".join(self.class_of(expected)).strip(), expected["plural_filter"]])
            self.assertEqual(row["first"], expected["default_extension"])

    def test_all_types_are_there_at_first(self):
        self.assertEqual(len(self.expect_types(lambda row: True)), 246)

    def test_a_search_narrows_the_rows_as_one_types(self):
        for text in ["verilog", "VERILOG", "Other", ".vh", "sv", "VFC_CLSID_TED", "{4643d12e-344d-4088-bba7",
                     "no such type", ""]:
            with self.subTest(text):
                self.search(text)
                self.expect_types(lambda row, text=text: text.lower() in self.searched(row))
        self.search("  verilog   include ")
        found = self.expect_types(lambda row: "verilog" in self.searched(row) and "include" in self.searched(row))
        self.assertIn(11, found)

    def test_nothing_found_is_said(self):
        self.assertFalse(self.one("#none").is_displayed())
        self.search("no such type")
        self.assertTrue(self.one("#none").is_displayed())
        self.one("#all").click()
        self.expect_types(lambda row: True)
        self.assertEqual(self.driver.switch_to.active_element.get_attribute("id"), "search")

    def test_every_editor_picks_its_types(self):
        chosen = Select(self.one("#editor"))
        names = [option.text.rpartition(" (")[0] for option in chosen.options]
        self.assertEqual(set(names), {row["editor"] for row in self.types if row["editor"]} | {"All types", "No editor"})
        self.assertEqual(len(names), len(set(names)))
        for option, name in zip(chosen.options, names):
            with self.subTest(name):
                chosen.select_by_visible_text(option.text)
                found = self.expect_types(lambda row, name=name: name == "All types" or
                                          (row["editor"] or "No editor") == name)
                self.assertTrue(option.text.endswith(f" ({len(found)})"))

    def test_every_trait_picks_its_types_and_several_add_up(self):
        boxes = self.driver.find_elements(By.CSS_SELECTOR, ".boxes label")
        names = [box.text.rpartition("\n")[0] for box in boxes]
        self.assertEqual(set(names), {trait for row in self.types for trait in row["traits"]})
        for box, name in zip(boxes, names):
            with self.subTest(name):
                box.click()
                found = self.expect_types(lambda row, name=name: name in row["traits"])
                self.assertEqual(box.text, f"{name}\n{len(found)}")
                box.click()
        boxes[0].click()
        boxes[3].click()
        self.expect_types(lambda row: names[0] in row["traits"] or names[3] in row["traits"])
        self.assertEqual(self.one("#chosen").text, "(2 chosen)")

    def test_search_editor_and_trait_narrow_each_other(self):
        self.search("verilog")
        Select(self.one("#editor")).select_by_index(3)
        editor = self.one("#editor option:checked").text.rpartition(" (")[0]
        self.one(".boxes label").click()
        trait = self.one(".boxes label").text.rpartition("\n")[0]
        found = self.expect_types(lambda row: "verilog" in self.searched(row) and row["editor"] == editor and
                                  trait in row["traits"])
        self.assertGreater(len(found), 2)

    def test_a_column_sorts_both_ways(self):
        names = {row["value"]: row["name"].lower() for row in self.types}
        header = self.one("thead th:nth-child(2)")
        for direction in ["ascending", "descending", "ascending"]:
            header.find_element(By.TAG_NAME, "button").click()
            self.assertEqual(header.get_attribute("aria-sort"), direction)
            self.assertEqual(len(self.driver.find_elements(By.CSS_SELECTOR, "[aria-sort]")), 1)
            first, last = (names[self.shown()[place]] for place in (0, -1))
            self.assertEqual(sorted([first, last], reverse=direction == "descending"), [first, last])
            self.assertEqual(sorted(self.shown()), sorted(names))
        self.one("thead th:nth-child(1) button").click()
        self.assertEqual(self.shown(), sorted(names))

    def test_an_empty_cell_sorts_last_either_way(self):
        without = {row["value"] for row in self.types if not row["editor"]}
        for _ in range(2):
            self.one("thead th:nth-child(4) button").click()
            self.assertEqual(set(self.shown()[-len(without):]), without)

    def test_a_click_copies_a_filter_and_a_class_identifier(self):
        for number in (9, 239):
            self.open(f"#type-{number}")
            self.one(f"#type-{number} [data-title=Filter] button").click()
            WebDriverWait(self.driver, 5).until(lambda driver: self.one("#copied").text)
            self.assertEqual(self.one("#copied").text, "Copied: " + self.types[number]["plural_filter"])
            self.assertEqual(self.clipboard(), self.types[number]["plural_filter"])
        self.open("#type-9")
        self.one("#type-9 [data-title=Class] button").send_keys(Keys.ENTER)
        WebDriverWait(self.driver, 5).until(lambda driver: self.one("#copied").text)
        self.assertEqual(self.clipboard(), self.class_of(self.types[9])[1])

    def test_a_page_without_the_clipboard_copies_all_the_same(self):
        self.driver.execute_script("navigator.clipboard.writeText = () => Promise.reject(new Error('refused'))")
        self.one("#type-8 [data-title=Filter] button").click()
        WebDriverWait(self.driver, 5).until(lambda driver: self.one("#copied").text)
        self.assertEqual(self.clipboard(), self.types[8]["plural_filter"])

    def expect_target(self, number):
        def is_target(driver):
            row = self.one(f"#type-{number}")
            return driver.switch_to.active_element == row and driver.execute_script(
                "const box = arguments[0].getBoundingClientRect();"
                "return arguments[0].matches(':target') && box.top >= 0 && box.bottom <= innerHeight", row)
        WebDriverWait(self.driver, 5).until(is_target)

    def test_an_address_leads_to_its_type(self):
        for width in (1400, 400):
            self.window(width, "light")
            self.open("#type-139")
            self.expect_target(139)

    def test_a_link_leads_to_its_type(self):
        self.search("verilog")
        self.one("#type-10 .name a").click()
        self.expect_target(10)
        self.assertTrue(self.driver.current_url.endswith("#type-10"))
        self.driver.execute_script("location.hash = '#type-200'")
        self.expect_target(200)
        self.assertEqual(len(self.shown()), len(self.types))

    def test_an_address_of_no_type_changes_nothing(self):
        for fragment in ("#type-246", "#type-", "#search", "#%00"):
            self.open(fragment)
            self.expect_types(lambda row: True)

    def test_the_keyboard_reaches_everything_in_order(self):
        reached = []
        for _ in range(40):
            self.driver.switch_to.active_element.send_keys(Keys.TAB)
            active = self.driver.switch_to.active_element
            reached.append(active.get_attribute("id") or active.get_attribute("name") or active.get_attribute("class")
                           or active.tag_name)
        fields = len(self.driver.find_elements(By.CSS_SELECTOR, "[name=trait]"))
        expected = ["search", "editor", "all", "summary"] + ["trait"] * fields + ["sort"] * 7
        self.assertEqual(reached[:len(expected)], expected)
        self.driver.switch_to.active_element.send_keys("/")
        self.assertEqual(self.driver.switch_to.active_element.get_attribute("id"), "search")

    def test_every_control_has_a_name_and_the_table_stays_one(self):
        for width in (1400, 400):
            self.window(width, "light")
            self.open()
            for control in self.driver.find_elements(By.CSS_SELECTOR, "input, select, thead button, summary"):
                if self.driver.execute_script("return arguments[0].checkVisibility()", control):
                    self.assertNotEqual(control.accessible_name, "", control.get_attribute("outerHTML"))
            self.assertEqual(self.one("table").aria_role, "table")
            self.assertEqual(self.one("#type-8").aria_role, "row")
            self.assertEqual(self.one("#type-8 .name").aria_role, "rowheader")
            self.assertEqual(self.one("#type-8 [data-title=Editor]").aria_role, "cell")
            self.assertEqual(self.one("#count").aria_role, "status")

    def test_a_narrow_window_sorts_too_and_nothing_is_cut_off(self):
        for width in (320, 400, 800, 1000, 1400):
            self.window(width, "light")
            self.open()
            self.assertEqual(*self.driver.execute_script(
                "const page = document.documentElement; return [page.scrollWidth, page.clientWidth]"))
        self.window(400, "light")
        self.open()
        Select(self.one("#order")).select_by_visible_text("Name")
        self.assertNotEqual(self.shown()[0], 0)

    def test_colours_follow_the_scheme_and_can_be_read(self):
        contrast = """
            const light = (colour) => colour.match(/[\\d.]+/g).slice(0, 3).map((part) => part / 255)
                .map((part) => (part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4))
                .reduce((sum, part, index) => sum + part * [0.2126, 0.7152, 0.0722][index], 0);
            const behind = (node) => {
              const colour = getComputedStyle(node).backgroundColor;
              return colour === "rgba(0, 0, 0, 0)" ? behind(node.parentElement) : colour;
            };
            return [...document.querySelectorAll("h1, #count, .caption, summary, .boxes label, .of, .sort," +
                " #type-9 *, #type-0 small, .note")].map((node) => {
              const [a, b] = [light(getComputedStyle(node).color), light(behind(node))];
              return [node.className || node.tagName, (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05)];
            });"""
        backgrounds = []
        for scheme in ("light", "dark"):
            self.window(1400, scheme)
            self.open("#type-9")
            for name, ratio in self.driver.execute_script(contrast):
                self.assertGreaterEqual(ratio, 4.5, f"{scheme}: {name}")
            backgrounds.append(self.one("body").value_of_css_property("background-color"))
        self.assertNotEqual(*backgrounds)

    def test_nothing_else_is_loaded(self):
        self.assertEqual(self.driver.execute_script("return performance.getEntriesByType('resource').length"), 0)
        self.assertEqual(self.driver.find_elements(By.CSS_SELECTOR, "link, [src], [srcset]"), [])

    def test_pictures(self):
        with tempfile.TemporaryDirectory() as scratch:
            directory = os.environ.get("CCL_SCREENSHOTS", scratch)
            for width in (1400, 400):
                for scheme in ("light", "dark"):
                    self.window(width, scheme)
                    self.open()
                    self.search("verilog")
                    self.assertTrue(self.driver.save_screenshot(f"{directory}/{width}_{scheme}.png"))


def main():
    missing = left_out()
    if missing:
        print(f"Left out: the test of the page in a browser, which needs {', '.join(missing)}")
        return LEFT_OUT
    Page.page = output_of("--html")
    Page.vocabulary = json.loads(output_of("--list", "--json"))
    return 0 if unittest.main(argv=sys.argv[:1], exit=False, verbosity=2).result.wasSuccessful() else 1


if __name__ == "__main__":
    sys.exit(main())
