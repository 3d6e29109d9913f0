import assert from "node:assert/strict";
import { test } from "node:test";

import { openReport } from "./support/pages.mjs";

const page = await openReport("many");

test("a report of a thousand tables opens, and its last entry is reached by the outline", async () => {
  const tables = await page.locator("figure.table").count();
  assert.ok(tables >= 1000, `${tables} tables`);
  const link = page.locator("#outline .tree a").last();
  await link.evaluate((element) => element.click());
  const id = await link.getAttribute("href");
  await page.waitForFunction((target) => {
    const { top } = document.querySelector(target).getBoundingClientRect();
    return top > -50 && top < innerHeight;
  }, id);
  assert.deepEqual(page.said, []);
});
