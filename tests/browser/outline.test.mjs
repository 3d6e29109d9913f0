import assert from "node:assert/strict";
import { test } from "node:test";

import { openReport } from "./support/pages.mjs";

const kReport = "tooth-growth";
const page = await openReport(kReport);

const focused = () => page.evaluate(() => document.activeElement.getAttribute("href"));
const links = (selector = "#outline .tree a") => page.locator(selector);
const hrefs = (selector) => links(selector).evaluateAll((all) => all.map((link) => link.getAttribute("href")));
const reload = async () => {
  await page.goto(page.url().split("#")[0]);
  await page.evaluate(() => scrollTo(0, 0));
};

test("the outline names every heading, table and chart in order, nested as they are", async () => {
  const entries = await hrefs("#outline .tree a");
  const targets = await page.$$eval("main section, main figure", (all) => all.map((one) => `#${one.id}`));
  assert.ok(targets.length > 10, `only ${targets.length} places`);
  assert.deepEqual(entries, targets);
  const misplaced = await links().evaluateAll((all) =>
    all.filter((link) => {
      const inTree = link.parentElement.parentElement.closest("li")?.querySelector("a")?.getAttribute("href") ?? null;
      const parent = document.querySelector(link.hash).parentElement.closest("section");
      return inTree !== (parent && `#${parent.id}`);
    }).map((link) => link.hash),
  );
  assert.deepEqual(misplaced, []);
});

test("a click goes to the place and marks it, also at the very end", async () => {
  for (const at of [8, (await links().count()) - 1, 2]) {
    const link = links().nth(at);
    await link.evaluate((element) => element.click()); // the list may move below a mouse
    const href = await link.getAttribute("href");
    await page.waitForFunction((id) => document.querySelector(id).getBoundingClientRect().top < innerHeight, href);
    const isOnlyMark = (id) => {
      const marked = [...document.querySelectorAll("#outline [aria-current=location]")];
      return marked.length === 1 && marked[0].getAttribute("href") === id;
    };
    await page.waitForFunction(isOnlyMark, href);
  }
});

test("scrolling moves the mark", async () => {
  await reload();
  const first = await page.locator("#outline [aria-current]").getAttribute("href");
  await page.evaluate(() => scrollTo(0, document.documentElement.scrollHeight / 2));
  await page.waitForFunction((href) => document.querySelector("#outline [aria-current]").getAttribute("href") !== href, first);
  await page.waitForFunction(
    () => document.querySelector(document.querySelector("#outline [aria-current]").hash).getBoundingClientRect().top <= 120,
    null,
    { timeout: 3000 },
  );
});

test("arrow keys walk, fold and unfold; Enter goes there", async () => {
  await reload();
  const [first, second] = await hrefs("#outline .tree a");
  assert.equal(await page.locator('#outline .tree a[tabindex="0"]').count(), 1, "one tab stop");
  await links().first().focus();
  const steps = [
    ["ArrowDown", second, "to the next"],
    ["ArrowUp", first, "back"],
    ["ArrowUp", first, "nothing above the first"],
    ["ArrowRight", second, "into an open subtree"],
    ["ArrowLeft", first, "to the parent"],
  ];
  for (const [key, expected, why] of steps) {
    await page.keyboard.press(key);
    assert.equal(await focused(), expected, why);
  }
  await page.keyboard.press("ArrowLeft");
  assert.equal(await links().first().getAttribute("aria-expanded"), "false");
  assert.equal(await links().nth(1).isVisible(), false);
  await page.keyboard.press("ArrowDown");
  assert.notEqual(await focused(), second, "folded entries are passed over");
  await page.keyboard.press("Home");
  await page.keyboard.press("ArrowRight");
  assert.equal(await links().nth(1).isVisible(), true);
  await page.keyboard.press("End");
  assert.equal(await focused(), (await hrefs("#outline .tree a")).at(-1));
  await page.keyboard.press("Enter");
  const last = (await hrefs("#outline .tree a")).at(-1);
  await page.waitForFunction((href) => location.hash === href, last);
});

test("a click on the triangle folds and unfolds", async () => {
  await reload();
  const shown = () => page.locator("#outline .tree a:visible").count();
  const all = await shown();
  await page.locator("#outline .fold").first().click();
  const folded = await shown();
  assert.ok(folded < all);
  await page.locator("#outline .fold").first().click();
  assert.equal(await shown(), all);
});

test("the filter keeps what fits, with what stands above it, also from folded subtrees", async () => {
  await reload();
  const wanted = (await page.locator("main figure.table caption").nth(3).textContent()).trim();
  await page.locator("#outline .fold").first().click();
  await page.fill("#filter", wanted.toUpperCase());
  const shown = await page.locator("#outline .tree a:visible").allTextContents();
  assert.ok(shown.includes(wanted));
  assert.ok(shown.length < (await links().count()));
  const found = Number.parseInt(await page.locator("#found").textContent(), 10);
  assert.ok(found >= 1 && found <= shown.length);
  await page.fill("#filter", "no such entry anywhere");
  assert.equal(await page.locator("#outline .tree a:visible").count(), 0);
  await page.keyboard.press("Escape");
  assert.equal(await page.inputValue("#filter"), "");
  assert.equal(await links().nth(0).isVisible(), true);
});

test("on a narrow screen the outline folds away and opens over the page", async () => {
  await page.setViewportSize({ width: 390, height: 800 });
  await reload();
  const opener = page.locator(".outline-link");
  assert.equal(await page.locator("#outline").isVisible(), false);
  await opener.click();
  assert.equal(await page.locator("#outline").isVisible(), true);
  assert.equal(await opener.getAttribute("aria-expanded"), "true");
  await page.keyboard.press("Escape");
  assert.equal(await page.locator("#outline").isVisible(), false);
  await opener.click();
  await links().nth(4).click();
  assert.equal(await page.locator("#outline").isVisible(), false, "it makes way for the place");
  const overflow = await page.evaluate(() => document.documentElement.scrollWidth - document.documentElement.clientWidth);
  assert.ok(overflow <= 0, `the page is ${overflow} px too wide`);
});
