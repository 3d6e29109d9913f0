import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { pathToFileURL } from "node:url";

import { context, openReport, reportFile, require } from "./support/pages.mjs";

const kAxe = readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");

const ground = (page) => page.evaluate(() => getComputedStyle(document.body).backgroundColor);
const isDark = (color) => color.match(/\d+/g).slice(0, 3).every((part) => Number(part) < 80);

test("the policy stops a script that is not the page's own", async () => {
  const page = await openReport("motor-trend");
  const policy = await page.getAttribute('meta[http-equiv="Content-Security-Policy"]', "content");
  assert.match(policy, /default-src 'none'/);
  assert.doesNotMatch(policy, /unsafe|https?:|\*/);
  const ran = await page.evaluate(() => {
    const script = document.createElement("script");
    script.textContent = "window.ran = true";
    document.body.append(script);
    return window.ran === true;
  });
  assert.equal(ran, false);
});

for (const [name, theme, size] of [
  ["insect-sprays", "light", { width: 1280, height: 900 }],
  ["insect-sprays", "dark", { width: 1280, height: 900 }],
  ["tooth-growth", "light", { width: 390, height: 800 }],
  ["hostile", "light", { width: 1280, height: 900 }],
  ["german", "dark", { width: 1280, height: 900 }],
]) {
  test(`axe finds nothing in ${name}, ${theme}, ${size.width} px wide`, async () => {
    const page = await openReport(name, { size });
    await page.evaluate((wanted) => (document.documentElement.dataset.theme = wanted), theme);
    await page.waitForFunction(() => !document.querySelector("figure.chart") || document.querySelector(".picture.drawn, .not-drawn, .waiting"));
    await page.evaluate(() => {
      for (const part of document.querySelectorAll("figure, section")) part.style.contentVisibility = "visible";
    });
    await page.evaluate(kAxe);
    const { violations } = await page.evaluate(() =>
      axe.run(document, { runOnly: ["wcag2a", "wcag2aa", "wcag21a", "wcag21aa", "wcag22aa", "best-practice"] }),
    );
    assert.deepEqual(
      violations.map((one) => [one.id, one.nodes.slice(0, 3).map((node) => [node.html.slice(0, 160), node.failureSummary])]),
      [],
    );
  });
}

test("one switch turns page, tables and charts; light comes first", async () => {
  const page = await openReport("insect-sprays");
  await page.emulateMedia({ colorScheme: "dark" });
  assert.equal(isDark(await ground(page)), false, "light, whatever the system has");
  const choose = (at) => page.locator(".theme label").nth(at).click();
  await choose(1);
  assert.equal(isDark(await ground(page)), true);
  await page.reload();
  assert.equal(isDark(await ground(page)), true, "the choice lasts");
  await choose(2);
  assert.equal(isDark(await ground(page)), true, "as the system");
  await page.emulateMedia({ colorScheme: "light" });
  assert.equal(isDark(await ground(page)), false, "as the system");
  await page.locator('.theme input[value="system"]').focus();
  await page.keyboard.press("ArrowLeft");
  assert.equal(isDark(await ground(page)), true, "by keyboard");
  await choose(0);
});

test("on paper: no outline, no buttons, light, all charts drawn", async () => {
  const page = await openReport("insect-sprays");
  await page.locator(".theme label").nth(1).click();
  const pdf = await page.pdf({ format: "A4" });
  assert.equal(pdf.subarray(0, 4).toString(), "%PDF");
  assert.ok(pdf.length > 20000, `${pdf.length} bytes`);
  assert.equal(await page.locator(".picture.waiting").count(), 0);
  await page.emulateMedia({ media: "print" });
  for (const selector of ["#outline", ".tools", ".theme", "details.data"])
    assert.equal(await page.locator(selector).first().isVisible(), false, selector);
  assert.equal(await ground(page), "rgb(255, 255, 255)");
  const style = await page.locator("figure.table thead").first().evaluate((head) => getComputedStyle(head).display);
  assert.equal(style, "table-header-group", "header rows are repeated");
  await page.emulateMedia({ media: null });
  await page.locator(".theme label").nth(0).click();
});

test("with script off, outline, tables, notes and texts are complete", async () => {
  const page = await context.newPage();
  const session = await context.newCDPSession(page);
  await session.send("Emulation.setScriptExecutionDisabled", { value: true });
  await page.goto(pathToFileURL(reportFile("insect-sprays")).href);
  const source = readFileSync(reportFile("insect-sprays"), "utf8");
  const count = (text) => source.split(text).length - 1;
  assert.equal(await page.locator("#outline li a").count(), count('<section id="') + count('<figure class="'));
  assert.ok(await page.locator("#outline li a").first().isVisible());
  assert.ok(await page.locator("figure.table td").first().isVisible());
  assert.equal(await page.locator("button:visible").count(), 0, "no dead buttons");
  assert.equal(await page.locator("input:visible").count(), 0, "no dead fields");
  const chart = page.locator("figure.chart").first();
  await chart.scrollIntoViewIfNeeded();
  assert.ok(await chart.locator(".title").isVisible());
  assert.ok(await chart.locator("details.data").isVisible());
  await chart.locator("details.data summary").click();
  assert.ok(await chart.locator("details.data table").isVisible());
});

test("the page speaks the language of the output", async () => {
  const page = await openReport("german");
  assert.equal(await page.getAttribute("html", "lang"), "de");
  assert.equal(await page.locator("#outline-name").textContent(), "Gliederung");
  assert.equal(await page.locator("figure.table button").first().textContent(), "Kopieren");
});

test("the tab key meets skip links, switch, results and outline", async () => {
  const page = await openReport("insect-sprays");
  const met = [];
  for (let press = 0; press < 4; ++press) {
    await page.keyboard.press("Tab");
    met.push(await page.evaluate(() => document.activeElement.className || document.activeElement.name || document.activeElement.closest("main")?.id));
  }
  assert.deepEqual(met.slice(0, 3), ["skip", "skip", "theme"]);
});
