import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";

import { drawAll, openReport } from "./support/pages.mjs";

const job = JSON.parse(readFileSync(new URL("jobs/hostile.json", import.meta.url), "utf8"));
const kLabels = [
  "<img src=x onerror=alert(1)>",
  "</script><script>alert(1)</script>",
  "\"&'",
  "\u202eright to left\u202c",
  "=1+2",
];
const page = await openReport("hostile");

test("labels stand in the page to the letter", async () => {
  const text = await page.evaluate(() => document.querySelector("main").textContent);
  for (const label of kLabels) assert.ok(text.includes(label), label);
  assert.equal(await page.textContent("h1"), job.title);
  assert.equal(await page.title(), job.title);
});

test("nothing of them became markup or ran", async () => {
  assert.equal(await page.locator("main img, main iframe, #outline img").count(), 0);
  const scripts = await page.$$eval("script:not([type])", (all) => all.length);
  assert.equal(scripts, 4, "the page's own and the three that draw");
  assert.deepEqual(page.said, []);
  assert.deepEqual(page.asked, []);
});

test("charts draw them, popups show them", async () => {
  await drawAll(page);
  assert.equal(await page.locator(".not-drawn").count(), 0);
  const drawn = await page.$$eval(".picture svg", (all) => all.map((svg) => svg.outerHTML).join(""));
  assert.ok(drawn.includes("&lt;img src=x"), "as text");
  const bar = page.locator(".picture.drawn g.mark-rect.role-mark path").first();
  await bar.scrollIntoViewIfNeeded();
  await bar.hover();
  await page.locator("#popup").waitFor({ state: "visible" });
  assert.equal(await page.locator("#popup *").count(), 0);
  assert.deepEqual(page.said, []);
});

test("copied and saved they stay text", async () => {
  const figure = page.locator("figure.table", { hasText: "<img src=x" }).first();
  await figure.scrollIntoViewIfNeeded();
  await figure.hover();
  await figure.getByRole("button").first().click();
  await page.waitForFunction(() => document.getElementById("told").textContent !== "");
  const markup = await page.evaluate(async () => (await (await navigator.clipboard.read({ unsanitized: ["text/html"] }))[0].getType("text/html")).text());
  assert.doesNotMatch(markup, /<img|<script/);
  assert.match(markup, /&lt;img/);
});
