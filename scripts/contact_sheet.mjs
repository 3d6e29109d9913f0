#!/usr/bin/env node
// Draws a chart of every kind from the examples into one picture, for docs/images/:
//   node scripts/contact_sheet.mjs TOOL NODE_MODULES charts.png
// With --reports FOLDER also the pictures of a report, light and dark. TOOL is the built nonpar,
// NODE_MODULES the modules that the build installed for the report.

import { execFileSync } from "node:child_process";
import { mkdtempSync, rmSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { dirname, join, resolve } from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";

const kSheetWidth = 1400;
const kSheetColumns = 4;
const kColumnWidth = 324;
const kScale = 0.56;
const kGap = 28;

// Of which example which chart: the first whose title begins so, or a later one.
const kKinds = [
  { example: "chick-feed", title: "Continuous Field Information" },
  { example: "chick-feed", title: "Categorical Field Information" },
  { example: "chick-feed", title: "One-Sample Binomial" },
  { example: "motor-trend", title: "One-Sample Chi-Square" },
  { example: "chick-feed", title: "One-Sample Kolmogorov-Smirnov Normal" },
  { example: "insect-sprays", title: "One-Sample Kolmogorov-Smirnov Uniform" },
  { example: "insect-sprays", title: "One-Sample Kolmogorov-Smirnov Poisson" },
  { example: "new-york-air", title: "One-Sample Kolmogorov-Smirnov Exponential" },
  { example: "new-york-air", title: "One-Sample Wilcoxon" },
  { example: "insect-sprays", title: "One-Sample Runs" },
  { example: "new-york-air", title: "Independent-Samples Kruskal-Wallis" },
  { example: "new-york-air", title: "Independent-Samples Jonckheere-Terpstra" },
  { example: "new-york-air", title: "Independent-Samples Median" },
  { example: "tooth-growth", title: "Independent-Samples Moses" },
  { example: "chick-feed", title: "Independent-Samples Mann-Whitney" },
  { example: "motor-trend", title: "Independent-Samples Wald-Wolfowitz" },
  { example: "motor-trend", title: "Independent-Samples Kolmogorov-Smirnov" },
  { example: "chick-feed", title: "Pairwise Comparisons" },
  { example: "department-ratings", title: "Related-Samples Sign" },
  { example: "mobility", title: "Related-Samples Wilcoxon" },
  { example: "department-ratings", title: "Related-Samples Cochran" },
  { example: "department-ratings", title: "Related-Samples McNemar" },
  { example: "department-ratings", title: "Related-Samples Friedman" },
  { example: "department-ratings", title: "Related-Samples Kendall" },
  { example: "mobility", title: "Related-Samples Marginal Homogeneity" },
  { example: "new-york-air", title: "Continuous Field Information" },
  { example: "mobility", title: "Related-Samples McNemar", nth: 1 },
  { example: "department-ratings", title: "Pairwise Comparisons" },
];

const options = process.argv.slice(2);
const reportsAt = options.indexOf("--reports");
const reportFolder = reportsAt < 0 ? null : resolve(options.splice(reportsAt, 2)[1]);
const [tool, modules, output] = options.map((path) => resolve(path));
if (!output) {
  console.error("usage: contact_sheet.mjs TOOL NODE_MODULES OUTPUT.png [--reports FOLDER]");
  process.exit(2);
}
const examples = join(dirname(fileURLToPath(import.meta.url)), "..", "examples");
const { chromium } = createRequire(join(modules, "contact-sheet.js"))("playwright-core");

function runExample(name, folder) {
  const report = join(folder, `${name}.html`);
  execFileSync(tool, ["run", join(examples, name, "job.json"), "--format", "html", "-o", report]);
  return pathToFileURL(report).href;
}

// The title and the picture of a chart, without the empty page beside them.
function findChart(page, { title, nth = 0 }) {
  const titled = page.locator(".title", { hasText: new RegExp(`^\\s*${title}`) });
  return page.locator("figure.chart").filter({ has: titled }).nth(nth);
}

async function shootChart(page, kind) {
  const figure = findChart(page, kind);
  await figure.evaluate((element) => element.scrollIntoView());
  const picture = figure.locator(".picture.drawn svg");
  await picture.waitFor();
  const frame = await figure.boundingBox();
  const box = await picture.boundingBox();
  const name = await figure.locator(".title a").evaluate((link) => {
    const range = document.createRange();
    range.selectNodeContents(link);
    return range.getBoundingClientRect().width;
  });
  const clip = {
    x: frame.x,
    y: frame.y,
    width: Math.min(frame.width, Math.max(box.x - frame.x + box.width, name)) + 4,
    height: box.y + box.height - frame.y + 4,
  };
  return { image: await page.screenshot({ clip }), width: clip.width, height: clip.height };
}

function sheetText(shots) {
  const columns = Array.from({ length: kSheetColumns }, () => ({ height: 0, shots: [] }));
  for (const shot of shots) {
    const lowest = columns.reduce((a, b) => (b.height < a.height ? b : a));
    lowest.shots.push(shot);
    lowest.height += shot.height * Math.min(1, kColumnWidth / (kScale * shot.width)) * kScale + kGap;
  }
  const picture = ({ image, width }) =>
    `<figure><img style="width: ${kScale * width}px" ` +
    `src="data:image/png;base64,${image.toString("base64")}"></figure>`;
  return `<!doctype html><style>
    body { margin: 0; padding: 16px; display: flex; gap: 24px; background: #fff; }
    div { flex: 1 1 0; min-width: 0; }
    figure { margin: 0 0 ${kGap}px; } img { display: block; max-width: 100%; }
    </style>${columns.map((column) => `<div>${column.shots.map(picture).join("")}</div>`).join("")}`;
}

async function shootReports(browser, url, folder) {
  for (const theme of ["light", "dark"]) {
    const page = await browser.newPage({ viewport: { width: 1300, height: 900 } });
    await page.addInitScript((name) => localStorage.setItem("nonpar-theme", name), theme);
    await page.goto(url);
    if (theme === "dark") {
      const chart = findChart(page, { title: "Independent-Samples Kruskal-Wallis" });
      await chart.evaluate((figure) => figure.scrollIntoView());
      await chart.locator(".picture.drawn").waitFor();
      await chart.evaluate((figure) => scrollBy(0, figure.getBoundingClientRect().bottom - innerHeight + 20));
      await page.waitForTimeout(300);
    }
    await page.screenshot({ path: join(folder, `report-${theme}.png`) });
    await page.close();
  }
}

const folder = mkdtempSync(join(tmpdir(), "contact-sheet-"));
const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-background-networking"],
});
try {
  const shots = new Map();
  for (const example of new Set(kKinds.map((kind) => kind.example))) {
    const page = await browser.newPage({ viewport: { width: 1300, height: 1600 }, deviceScaleFactor: 1.5 });
    page.on("console", (message) => console.warn(`${example}: ${message.text()}`));
    await page.goto(runExample(example, folder));
    for (const kind of kKinds.filter((entry) => entry.example === example)) {
      shots.set(kind, await shootChart(page, kind));
    }
    await page.close();
  }
  const sheet = await browser.newPage({ viewport: { width: kSheetWidth, height: 900 } });
  await sheet.setContent(sheetText(kKinds.map((kind) => shots.get(kind))));
  await sheet.screenshot({ path: output, fullPage: true });
  if (reportFolder) await shootReports(browser, runExample("chick-feed", folder), reportFolder);
} finally {
  await browser.close();
  rmSync(folder, { recursive: true, force: true });
}
