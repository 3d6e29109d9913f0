import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";

import { drawAll, openReport } from "./support/pages.mjs";

const kReports = [
  "chick-feed", "department-ratings", "infertility", "insect-sprays",
  "mobility", "motor-trend", "new-york-air", "tooth-growth",
];

// How many marks of each kind the document of a chart asks for.
function expectedMarks(spec) {
  const counts = { rect: 0, symbol: 0, rule: 0, text: 0, line: 0, area: 0 };
  const kinds = { bar: "rect", rect: "rect", point: "symbol", circle: "symbol", square: "symbol", tick: "rect", rule: "rule", text: "text" };
  const visit = (unit, inherited) => {
    const rows = unit.data?.values ?? inherited;
    for (const part of unit.layer ?? unit.concat ?? unit.hconcat ?? unit.vconcat ?? []) visit(part, rows);
    if (!unit.mark) return;
    const type = unit.mark.type ?? unit.mark;
    if (kinds[type]) counts[kinds[type]] += rows.length;
    else counts[type] += rows.length ? 1 : 0;
  };
  visit(spec, []);
  return counts;
}

const drawnMarks = (figure) =>
  figure.evaluate((element) => {
    const count = (kind, child) =>
      [...element.querySelectorAll(`.picture g.mark-${kind}.role-mark`)].reduce((sum, group) => sum + group.querySelectorAll(child).length, 0);
    return {
      rect: count("rect", "path"), symbol: count("symbol", "path"), rule: count("rule", "line"),
      text: count("text", "text"), line: count("line", "path"), area: count("area", "path"),
    };
  });

for (const name of kReports) {
  test(`${name}: every chart is drawn, with a mark for each row of its data`, async () => {
    const page = await openReport(name);
    await drawAll(page);
    const figures = await page.locator("figure.chart").all();
    assert.ok(figures.length > 0);
    for (const figure of figures) {
      const title = await figure.locator(".title").textContent();
      assert.equal(await figure.locator(".not-drawn").count(), 0, `${title} is drawn`);
      const spec = JSON.parse(await figure.locator("script").textContent());
      assert.deepEqual(await drawnMarks(figure), expectedMarks(spec), title);
      for (const cells of await figure.locator("details.data tr").evaluateAll(
        (rows) => rows.map((row) => row.cells.length))) assert.ok(cells > 0, `${title}: cells`);
    }
    assert.deepEqual(page.said, []);
    assert.deepEqual(page.asked, []);
  });
}

test("a chart is drawn as it comes into view, in a box that keeps its size", async () => {
  const page = await openReport("tooth-growth");
  const last = page.locator("figure.chart .picture").last();
  assert.match(await last.getAttribute("class"), /waiting/);
  const room = await last.evaluate((box) => ({ width: box.offsetWidth, height: box.offsetHeight }));
  await last.evaluate((box) => (location.hash = box.closest("figure").id));
  await page.waitForFunction(() => [...document.querySelectorAll(".picture")].at(-1).matches(".drawn"));
  const drawn = await last.evaluate((box) => ({ width: box.offsetWidth, height: box.offsetHeight }));
  assert.ok(Math.abs(drawn.height - room.height) <= 1, `${room.height} px were kept, ${drawn.height} px were needed`);
});

test("popups have several lines and show texts as texts", async () => {
  const page = await openReport("insect-sprays");
  const bar = page.locator(".picture.drawn g.mark-rect.role-mark path").first();
  await page.locator("figure.chart").first().scrollIntoViewIfNeeded();
  await bar.waitFor();
  await bar.hover();
  const popup = page.locator("#popup");
  await popup.waitFor({ state: "visible" });
  const text = await popup.textContent();
  assert.ok(text.split("\n").length >= 2, text);
  assert.equal(await popup.evaluate((box) => getComputedStyle(box).whiteSpaceCollapse), "preserve-breaks");
  assert.equal(await popup.locator("*").count(), 0);
  await page.mouse.move(2, 2);
  await popup.waitFor({ state: "hidden" });
});

test("the menu saves SVG and PNG and copies the JSON", async () => {
  const page = await openReport("insect-sprays");
  const figure = page.locator("figure.chart").first();
  await figure.scrollIntoViewIfNeeded();
  const title = (await figure.locator(".title").textContent()).trim();
  const use = async (action) => {
    await figure.hover();
    await figure.locator(`button[data-do="${action}"]`).click();
  };
  const saved = async (action) => {
    const [download] = await Promise.all([page.waitForEvent("download"), use(action)]);
    return { name: download.suggestedFilename(), bytes: readFileSync(await download.path()) };
  };

  const svg = await saved("save-svg");
  assert.match(svg.name, /\.svg$/);
  assert.ok(svg.name.startsWith(title.split(/[\\/:*?"<>|]/)[0].trim()), svg.name);
  const drawing = svg.bytes.toString("utf8");
  assert.match(drawing, /^<svg/);
  assert.ok(drawing.includes(title.slice(0, 20)), "the title stands inside");
  assert.match(drawing, /fill="(white|#ffffff|#fff)"/i, "white ground");
  assert.doesNotMatch(drawing, /light-dark|var\(/, "no colour of the page");

  const png = await saved("save-png");
  assert.match(png.name, /\.png$/);
  assert.equal(png.bytes.subarray(1, 4).toString(), "PNG");
  const [, width] = /<svg[^>]* width="([\d.]+)"/.exec(drawing);
  assert.ok(Math.abs(png.bytes.readUInt32BE(16) - 2 * Number(width)) <= 2, "two pixels a pixel");

  await use("copy-json");
  await page.waitForFunction(() => document.getElementById("told").textContent !== "");
  const spec = JSON.parse(await page.evaluate(() => navigator.clipboard.readText()));
  assert.match(spec.$schema, /vega-lite\/v6/);
  assert.ok(JSON.stringify(spec.title).includes(title.slice(0, 20)));
  assert.ok(spec.config);
  assert.equal(await figure.getByText(/editor/i).count(), 0);
  assert.deepEqual(page.said, []);
  assert.deepEqual(page.asked, []);
});

test("colours of the drawn charts follow the switch without a new drawing", async () => {
  const page = await openReport("insect-sprays");
  await page.locator("figure.chart").first().scrollIntoViewIfNeeded();
  const label = page.locator(".picture.drawn .role-axis-label text").first();
  await label.waitFor();
  const color = () => label.evaluate((text) => getComputedStyle(text).fill);
  const before = await color();
  await page.locator(".theme label").nth(1).click();
  assert.notEqual(await color(), before);
  await page.locator(".theme label").nth(0).click();
  assert.equal(await color(), before);
});
