import assert from "node:assert/strict";
import { after, before, test } from "node:test";

import { openReport, startBrowser } from "./support/browser.mjs";

let browser;
let page;
let opened;

before(async () => {
  browser = await startBrowser();
  const start = performance.now();
  page = await openReport(browser.context, "many");
  opened = performance.now() - start;
});
after(() => browser.close());

test("a report of a thousand tables opens at once", async () => {
  const tables = await page.locator("figure.table").count();
  assert.ok(tables >= 1000, `${tables} tables`);
  assert.ok(opened < 15000, `${Math.round(opened)} ms`);
});

test("it scrolls without stutter", async () => {
  // The median time of a frame; of a page that rests it tells how busy the machine is.
  const frameTime = (distance) =>
    page.evaluate(async (by) => {
      const frame = () => new Promise((done) => requestAnimationFrame(done));
      const times = [];
      let last = await frame();
      for (let step = 0; step < 60; ++step) {
        scrollBy(0, by);
        const now = await frame();
        times.push(now - last);
        last = now;
      }
      return times.sort((one, other) => one - other)[30];
    }, distance);
  const resting = await frameTime(0);
  const scrolling = await frameTime(700);
  assert.ok(scrolling < 50 + 4 * (resting - 16), `${scrolling} ms a frame, ${resting} ms at rest`);
});

test("its last entry is reached by the outline", async () => {
  const link = page.locator("#outline .tree a").last();
  await link.evaluate((element) => element.click());
  const id = await link.getAttribute("href");
  await page.waitForFunction((target) => {
    const { top } = document.querySelector(target).getBoundingClientRect();
    return top > -50 && top < innerHeight;
  }, id);
  assert.deepEqual(page.said, []);
});
