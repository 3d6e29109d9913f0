// The browser of the test file that imports this, and the one page that is open in it.

import { after } from "node:test";

import { openReport as openIn, startBrowser } from "./browser.mjs";

export { reportFile, require } from "./browser.mjs";

const browser = await startBrowser();
after(() => browser.close());
export const { context } = browser;

let page;

// Opens a report instead of the one before.
export async function openReport(name, options) {
  await page?.close();
  return (page = await openIn(context, name, options));
}

// Draws all charts of a page, as printing does, and waits for them.
export async function drawAll(shown) {
  await shown.evaluate(() => dispatchEvent(new Event("beforeprint")));
  await shown.waitForFunction(() => !document.querySelector(".picture.waiting"));
  await shown.evaluate(() => dispatchEvent(new Event("afterprint")));
}
