#!/usr/bin/python3
"""Opens pages of reports in a browser and uses them as an editor does.

    page_browser_test.py path/to/write_pages FOLDER

Pages and screenshots of them go into FOLDER. Without chromium it ends with status 77.
"""
import functools
import json
import pathlib
import re
import subprocess
import sys
import unittest

import devtools

PAGES = ("report", "hostile", "large", "comparison", "plain")
HOSTILE_NAMES = (
    "</script><script>document.title = 'broken'</script>",
    "<!-- <script>",
    "<img src=x onerror=\"document.title = 'broken'\">",
    "\"}]; 'quotes' \\ `${document.title = 'broken'}` &lt; &amp;",
    "separators \u2028 \u2029 and \u202e reversed",
    "ill-formed \ufffd\ufffd bytes",
)
CLIPS = "[...clipsOf(state.cut)].filter((clip) => clip.kind !== TRANSITION)"

folder = None
browser = None


def embedded(page, name):
    text = (folder / f"{page}.html").read_text("utf-8")
    return json.loads(re.search(rf'id="{name}">([^<]*)</script>', text)[1])


def opened(*pages):
    """A test for each of the pages, which must not report an error."""
    def decorate(test):
        @functools.wraps(test)
        def run(self):
            for page in pages:
                with self.subTest(page):
                    tab = browser.open(folder / f"{page}.html")
                    test(self, tab, page)
                    self.assertEqual(tab.errors, [])
                    tab.close()
        return run
    return decorate


class PageTest(unittest.TestCase):
    @opened(*PAGES)
    def test_shows_all_clips(self, tab, page):
        rows = [len(track["clips"]) // 5
                for project in embedded(page, "timelines")["projects"]
                for track in project["sequences"][0]["tracks"]]
        self.assertEqual(tab.value(CLIPS + ".length"), sum(rows))
        items = (embedded(page, "account") or {"items": []})["items"]
        differences = embedded(page, "timelines")["differences"]
        self.assertEqual(tab.value("data.remarks.length"), len(items) + len(differences))
        tab.screenshot(folder / f"{page}.png")

    @opened("report", "large")
    def test_items_are_on_their_clips(self, tab, page):
        texts = tab.value("data.remarks.filter(({clips}) => clips.length > 0).map(({clips, start,"
                          " end, clip}) => [clips[0].name, rangeText(clips[0]), clip,"
                          " `${start} to ${end}`])")
        located = [item for item in embedded(page, "account")["items"] if "frame" in item]
        self.assertEqual(len(texts), len(located))
        for name, span, expected_name, expected_span in texts:
            self.assertEqual((name, span), (expected_name, expected_span))

    @opened("report")
    def test_draws_clips_in_the_color_of_their_mark(self, tab, page):
        for theme in ("light", "dark"):
            tab.value(f"showTheme('{theme}')")
            for mark in ("lost", "changed", "assumed"):
                self.assertGreater(tab.value(COUNT_PIXELS % mark), 100, (theme, mark))
            tab.screenshot(folder / f"report-{theme}.png")

    @opened("report", "large")
    def test_zooms(self, tab, page):
        tab.value("timeline.scroller.focus()")
        fit = tab.value("timeline.scale")
        tab.key("+")
        tab.key("+")
        self.assertAlmostEqual(tab.value("timeline.scale"), fit * 2.25)
        tab.key("-")
        self.assertAlmostEqual(tab.value("timeline.scale"), fit * 1.5)
        tab.key("0")
        self.assertAlmostEqual(tab.value("timeline.scale"), fit)
        box = tab.value("timeline.canvas.getBoundingClientRect().toJSON()")
        before = tab.value("secondsAt(400)")
        tab.wheel(box["x"] + 400, box["y"] + 60, -600, ctrl=True)
        self.assertGreater(tab.value("timeline.scale"), fit * 2)
        self.assertAlmostEqual(tab.value("secondsAt(400)"), before, delta=2 / fit)
        tab.screenshot(folder / f"{page}-zoomed.png")

    @opened("report")
    def test_filters(self, tab, page):
        lost = "data.remarks.filter(({mark}) => mark === 0).flatMap(({clips}) => clips)"
        shown = "data.groups.filter(({row}) => !row.hidden).map(({mark}) => MARKS[mark].id)"
        tab.click("#legend button")
        self.assertNotIn("lost", tab.value(shown))
        self.assertTrue(tab.value(lost + ".every(({isFaint}) => isFaint)"))
        tab.click("#legend button")
        tab.value("document.getElementById('search').focus()")
        tab.type("moon")
        self.assertEqual(tab.value(shown), ["lost"])
        self.assertEqual(tab.value(CLIPS + ".filter(({isFaint}) => !isFaint)"
                                   ".every(({name}) => /moon/i.test(name))"), True)
        tab.type(" of no clip")
        self.assertEqual(tab.text("#nothing"), "Nothing matches the filter.")

    @opened("report")
    def test_selects_by_key(self, tab, page):
        tab.value("timeline.scroller.focus()")
        tab.key("ArrowRight")
        self.assertRegex(tab.text("#live"), r"^V2, .+, 04:00:00:10 to 04:00:04:\d\d, lost: ")
        tab.key("ArrowDown")
        self.assertRegex(tab.text("#live"), r"^V1, ")
        tab.key("End")
        last = tab.text("#live")
        tab.key("ArrowRight")
        self.assertEqual(tab.text("#live"), last)
        tab.key("Home")
        tab.key("n")
        self.assertRegex(tab.text("#live"), r"(lost|changed|assumed|skipped): \w+ ")
        tab.key("Enter")
        self.assertEqual(tab.value("document.activeElement.id"), "details-heading")
        self.assertEqual(tab.value("document.querySelectorAll('.happened > li').length"), 1)
        tab.screenshot(folder / "report-selected.png")
        tab.key("Escape")
        self.assertEqual(tab.value("document.activeElement.id"), "timeline")
        tab.key("Tab")
        self.assertNotEqual(tab.value("document.activeElement.id"), "timeline")

    @opened("report")
    def test_clips_are_selected_where_they_are_drawn(self, tab, page):
        for index in (0, 2, 5):
            box = tab.value("timeline.canvas.getBoundingClientRect().toJSON()")
            location = tab.value(f"""(() => {{
                const row = timeline.rows.filter(({{track}}) => track)[{index}];
                const clip = row.track.clips.find(({{kind}}) => kind !== TRANSITION);
                const middle = (clip.start + clip.end) / 2;
                return {{x: xOf(row.track.view, middle), y: row.y + row.height / 2,
                         text: clipText(clip)}};
            }})()""")
            tab.click_at(box["x"] + location["x"], box["y"] + location["y"])
            self.assertTrue(tab.text("#live").startswith(location["text"]), location)

    @opened("large")
    def test_groups_mark_their_clips(self, tab, page):
        tab.click("button.group")
        clips = tab.value("state.group.clips.size")
        self.assertGreater(clips, 100)
        self.assertEqual(tab.value(CLIPS + ".filter(({isFaint}) => !isFaint).length"), clips)
        lines = "document.querySelectorAll('.remarks > li').length"
        self.assertEqual(tab.value(lines), min(clips, 200))
        tab.screenshot(folder / "large-group.png")
        tab.value("document.querySelector('ol.remarks').scrollIntoView()")
        tab.click("ol.remarks button.location")
        tab.key("+")
        self.assertEqual(tab.value("state.selected === [...state.group.clips][0]"), True)
        tab.click("button.group")
        self.assertEqual(tab.value(lines), 0)

    @opened("large")
    def test_long_lists_come_in_steps(self, tab, page):
        tab.value("data.groups[0].shown = data.remarks; toggleGroup(data.groups[0]);"
                  "data.groups[0].shown = data.remarks; renderTable()")
        lines = "document.querySelectorAll('.remarks > li').length"
        self.assertEqual(tab.value(lines), 200)
        tab.click("button.more")
        self.assertEqual(tab.value(lines), 400)

    @opened("large")
    def test_feature_film_is_drawn_quickly(self, tab, page):
        milliseconds = tab.value("""(() => {
            const start = performance.now();
            readData();
            drawTimeline();
            drawOverview();
            return performance.now() - start;
        })()""")
        print(f"30,000 clips are read and drawn in {milliseconds:.0f} ms")
        self.assertLess(milliseconds, 1000)
        self.assertLess((folder / "large.html").stat().st_size, 6e6)
        self.assertLess(tab.value("document.querySelectorAll('*').length"), 1000)

    @opened("comparison")
    def test_compares_two_cuts(self, tab, page):
        marks = tab.value("state.cut.views.map(({tracks}) => tracks.flatMap(({clips}) => clips)"
                          ".map(({mark}) => MARKS[mark].id)"
                          ".filter((id) => id !== 'arrived').sort())")
        self.assertEqual(marks, [["changed", "changed", "changed", "lost", "moved"],
                                 ["added", "changed", "changed", "changed", "moved"]])
        locked = tab.value("state.cut.views.map(({tracks}) => tracks.filter(({remarks}) =>"
                           " remarks.length > 0).map(({id}) => id))")
        self.assertEqual(locked, [["A2"], ["A2"]])
        tab.value("showTheme('dark')")
        tab.screenshot(folder / "comparison-dark.png")

    @opened("hostile")
    def test_names_are_only_text(self, tab, page):
        text = tab.value("document.body.textContent")
        for name in HOSTILE_NAMES:
            self.assertIn(name, text)
        self.assertTrue(tab.value("document.title").startswith(HOSTILE_NAMES[0]))
        self.assertEqual(tab.value("document.querySelectorAll('script').length"), 3)
        self.assertEqual(tab.value("document.querySelectorAll('img').length"), 0)

    def test_nothing_else_runs(self):
        for attempt in ("const script = document.createElement('script');"
                        "script.textContent = 'document.title = 1'; document.body.append(script)",
                        "document.body.insertAdjacentHTML('beforeend',"
                        "'<img src=x onerror=\"document.title = 1\">')",
                        "fetch('http://localhost/').catch(() => 0)"):
            with self.subTest(attempt):
                tab = browser.open(folder / "report.html")
                tab.value(attempt + "; 0")
                tab.wait_for(lambda: tab.errors)
                self.assertIn("Content Security Policy", tab.errors[0])
                self.assertNotEqual(tab.value("document.title"), "1")
                tab.close()

    @opened("report", "comparison")
    def test_texts_can_be_read(self, tab, page):
        for theme in ("light", "dark"):
            tab.value(f"showTheme('{theme}')")
            for text, ground, ratio in tab.value(CONTRASTS):
                self.assertGreaterEqual(ratio, 4.5, (theme, text, ground))

    @opened("report", "comparison", "plain")
    def test_narrow_windows_and_paper(self, tab, page):
        tab.resize(480, 900)
        self.assertLessEqual(tab.value("document.documentElement.scrollWidth"),
                             tab.value("document.documentElement.clientWidth"))
        tab.screenshot(folder / f"{page}-narrow.png", whole=True)
        tab.resize(1000, 900)
        tab.print_as(folder / f"{page}-print.png")


# Pixels of the timeline in the color of a mark.
COUNT_PIXELS = """(() => {
    drawTimeline();
    const {canvas} = timeline;
    const color = palette.marks[MARKS.findIndex(({id}) => id === '%s')].strong;
    const [red, green, blue] = color.match(/[0-9a-f]{2}/g).map((digits) => parseInt(digits, 16));
    const {data: bytes} = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height);
    let count = 0;
    for (let i = 0; i < bytes.length; i += 4)
        count += bytes[i] === red && bytes[i + 1] === green && bytes[i + 2] === blue;
    return count;
})()"""

# Texts and what they are on, with the ratio of their luminances.
CONTRASTS = """(() => {
    const style = getComputedStyle(document.documentElement);
    const luminance = (name) => {
        const digits = style.getPropertyValue(`--${name}`).match(/[0-9a-f]{2}/g);
        const [r, g, b] = digits.map((pair) => parseInt(pair, 16) / 255)
            .map((part) => part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
        return 0.2126 * r + 0.7152 * g + 0.0722 * b;
    };
    const marks = MARKS.map(({id}) => id);
    const bodies = ['video', 'audio', 'title', 'generator', 'nested',
        ...marks.map((id) => `${id}-body`)];
    const pairs = [['ink', 'page'], ['ink', 'panel'], ['ink', 'hover'], ['muted', 'page'],
        ['muted', 'panel'], ['muted', 'hover'], ['accent', 'panel'], ['accent', 'hover'],
        ...bodies.map((body) => ['ink', body]),
        ...marks.filter((id) => id !== 'arrived').map((id) => [id, `${id}-body`])];
    return pairs.map(([text, ground]) => {
        const [low, high] = [luminance(text), luminance(ground)].sort((a, b) => a - b);
        return [text, ground, (high + 0.05) / (low + 0.05)];
    });
})()"""


if __name__ == "__main__":
    writer, folder = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    if not devtools.browser_path():
        print("chromium is not installed: the pages were not opened")
        sys.exit(77)
    subprocess.run([writer, folder], check=True)
    with devtools.Browser() as browser:
        unittest.main(argv=sys.argv[:1])
