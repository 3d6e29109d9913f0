// How a large report opens and scrolls in a browser:
//   NONPAR_REPORTS=FOLDER NONPAR_NODE_MODULES=FOLDER node page.mjs NAME [ROUNDS]
// Prints one line of JSON: medians over the rounds, each with a new browser, in milliseconds.

import { openReport, startBrowser } from "../tests/browser/support/browser.mjs";

const [name, rounds = "3"] = process.argv.slice(2);

// Runs in the page before anything of it: notes when the pictures in view are drawn for the first
// time, and every task that holds the main thread for more than 50 ms. To ask the pictures where they
// are would lay out all that the browser has put off; an observer doesn't.
function watch() {
  window.measured = { drawn: 0, tasks: [], inView: new Set() };
  new PerformanceObserver((list) => {
    for (const { startTime, duration } of list.getEntries()) measured.tasks.push({ startTime, duration });
  }).observe({ type: "longtask", buffered: true });
  measured.waiting = () => [...measured.inView].some((picture) => picture.classList.contains("waiting"));
  const observer = new IntersectionObserver((entries) => {
    for (const { target, isIntersecting } of entries) {
      if (isIntersecting) measured.inView.add(target);
      else measured.inView.delete(target);
    }
  });
  const look = () => {
    if (measured.inView.size > 0 && !measured.waiting()) measured.drawn = performance.now();
    else requestAnimationFrame(look);
  };
  addEventListener("DOMContentLoaded", () => {
    for (const picture of document.querySelectorAll(".picture")) observer.observe(picture);
    requestAnimationFrame(look);
  });
}

// Goes down by most of a screen at a time and stays until the charts in view are drawn.
async function scrollThrough() {
  const frame = () => new Promise((done) => requestAnimationFrame(done));
  const kPatience = 20000;
  const from = performance.now();
  const found = { steps: 0, gap: 0, wait: 0 };
  let last = await frame();
  for (let before = -1; scrollY !== before; ++found.steps) {
    before = scrollY;
    scrollBy({ top: innerHeight * 0.8, behavior: "instant" });
    const start = performance.now();
    for (let frames = 0; frames < 3 || (measured.waiting() && last - start < kPatience); ++frames) {
      const now = await frame();
      found.gap = Math.max(found.gap, now - last);
      last = now;
    } // what is in view is known one frame after it came there
    found.wait = Math.max(found.wait, last - start);
  }
  found.task = Math.max(0, ...measured.tasks.filter((task) => task.startTime >= from).map((task) => task.duration));
  found.left = document.querySelectorAll(".picture.waiting").length;
  return found;
}

// The processor time of the longest task of the page's main thread during `work`: what the clock tells
// without what else the machine did meanwhile.
async function longestTask(page, work) {
  const session = await page.context().newCDPSession(page);
  const events = [];
  session.on("Tracing.dataCollected", ({ value }) => events.push(...value));
  const ended = new Promise((done) => session.once("Tracing.tracingComplete", done));
  const traceConfig = { includedCategories: ["toplevel"], excludedCategories: ["*"] };
  await session.send("Tracing.start", { transferMode: "ReportEvents", traceConfig });
  const result = await work();
  await session.send("Tracing.end");
  await ended;
  const main = events.find(({ name, args }) => name === "thread_name" && args.name === "CrRendererMain");
  const times = events.filter(({ pid, tid }) => pid === main.pid && tid === main.tid).map(({ tdur }) => tdur ?? 0);
  return { ...result, processor: Math.max(...times) / 1000 };
}

async function measure(url) {
  const browser = await startBrowser();
  try {
    await browser.context.addInitScript(watch);
    const page = await openReport(browser.context, name, { url });
    await page.waitForFunction(() => measured.drawn > 0 || !location.hash);
    const opened = await page.evaluate(() => ({
      paint: performance.getEntriesByName("first-contentful-paint")[0].startTime,
      loaded: performance.getEntriesByType("navigation")[0].domContentLoadedEventEnd,
      drawn: measured.drawn,
      charts: document.querySelectorAll("figure.chart").length,
      opening: Math.max(0, ...measured.tasks.map((task) => task.duration)),
    }));
    if (url) return { drawn: opened.drawn };
    return { ...opened, ...(await longestTask(page, () => page.evaluate(scrollThrough))) };
  } finally {
    await browser.close();
  }
}

const middle = (numbers) => numbers.sort((one, other) => one - other)[Math.floor(numbers.length / 2)];

const all = [];
for (let round = 0; round < Number(rounds); ++round) all.push({ ...(await measure("")), ...(await measure("#c1")) });
const middles = Object.keys(all[0]).map((key) => [key, middle(all.map((one) => one[key]))]);
console.log(JSON.stringify(Object.fromEntries(middles)));
