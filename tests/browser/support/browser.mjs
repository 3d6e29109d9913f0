// A browser for a test file, and pages that keep what they say and what they ask of the network.

import { mkdtempSync, rmSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";

function folderFrom(variable, meaning) {
  const folder = process.env[variable];
  if (!folder) throw new Error(`${variable} has to name ${meaning}`);
  return resolve(folder);
}

const reports = folderFrom("NONPAR_REPORTS", "the folder of the reports");
const modules = folderFrom("NONPAR_NODE_MODULES", "the node_modules of the report");

export const require = createRequire(join(modules, "browser-tests.js"));
const { chromium } = require("playwright-core");

const kFlags = [
  "--headless",
  "--no-sandbox",
  "--disable-gpu",
  "--disable-quic",
  "--no-first-run",
  "--disable-background-networking",
  "--disable-component-update",
  "--disable-sync",
];

export const reportFile = (name) => join(reports, `${name}.html`);

// Starts a browser with a new profile; `close` ends it and removes the profile.
export async function startBrowser() {
  const profile = mkdtempSync(join(tmpdir(), "nonpar-browser-"));
  const context = await chromium.launchPersistentContext(profile, {
    executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
    args: kFlags,
    viewport: { width: 1280, height: 900 },
    permissions: ["clipboard-read", "clipboard-write"],
    acceptDownloads: true,
  });
  const close = async () => {
    await context.close();
    rmSync(profile, { recursive: true, force: true });
  };
  return { context, close };
}

// Opens a report from disk. `page.said` gathers console messages and errors, `page.asked` every
// request but that of the page itself.
export async function openReport(context, name, { size, url = "" } = {}) {
  const page = await context.newPage();
  page.said = [];
  page.asked = [];
  page.on("console", (message) => page.said.push(message.text()));
  page.on("pageerror", (error) => page.said.push(String(error)));
  page.on("dialog", (dialog) => {
    page.said.push(`dialog: ${dialog.message()}`);
    dialog.dismiss();
  });
  page.on("request", (request) => {
    if (!request.isNavigationRequest() && !/^(blob|data):/.test(request.url())) page.asked.push(request.url());
  });
  if (size) await page.setViewportSize(size);
  await page.goto(`${pathToFileURL(reportFile(name))}${url}`);
  return page;
}
