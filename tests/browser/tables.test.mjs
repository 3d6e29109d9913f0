import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";

import { openReport } from "./support/pages.mjs";

const page = await openReport("insect-sprays");

const clipboard = (type) =>
  page.evaluate(async (wanted) => {
    const [item] = await navigator.clipboard.read({ unsanitized: ["text/html"] });
    return (await item.getType(wanted)).text();
  }, type);

// The shown text of every cell of a table, marks of notes apart.
const cellsOf = (figure) =>
  figure.locator("th, td").evaluateAll((cells) =>
    cells.map((cell) => [...cell.childNodes].filter((node) => node.nodeName !== "SUP").map((node) => node.textContent).join("").trim()),
  );

const joined = () => page.locator("figure.table:has(th[colspan], th[rowspan])").first();

// RFC 4180.
function parseCsv(text) {
  const rows = [[""]];
  let quoted = false;
  for (let at = 0; at < text.length; ++at) {
    const sign = text[at];
    const row = rows.at(-1);
    if (quoted) {
      if (sign === '"' && text[at + 1] === '"') row[row.length - 1] += text[++at];
      else if (sign === '"') quoted = false;
      else row[row.length - 1] += sign;
    } else if (sign === '"') quoted = true;
    else if (sign === ",") row.push("");
    else if (sign === "\n") rows.push([""]);
    else if (sign !== "\r") row[row.length - 1] += sign;
  }
  return rows.slice(0, -1);
}

test("every table has a caption, its heads a scope, and its rows are complete", async () => {
  const faults = await page.$$eval("figure.table table", (tables) =>
    tables.flatMap((table) => {
      const found = [];
      if (!table.caption?.textContent.trim()) found.push(`${table.parentElement.parentElement.id}: caption`);
      if (table.querySelector("th:not([scope])")) found.push(`${table.parentElement.parentElement.id}: scope`);
      const widths = [...table.rows].map(() => 0);
      [...table.rows].forEach((row, at) => {
        for (const cell of row.cells)
          for (let down = 0; down < cell.rowSpan; ++down) widths[at + down] += cell.colSpan;
      });
      if (new Set(widths).size !== 1) found.push(`${table.parentElement.parentElement.id}: widths ${widths}`);
      return found;
    }),
  );
  assert.deepEqual(faults, []);
});

test("numbers stand at the right in tabular figures, a missing one as a point", async () => {
  const styles = await page.$$eval("td.number", (cells) =>
    cells.slice(0, 50).map((cell) => {
      const style = getComputedStyle(cell);
      return `${style.textAlign} ${style.fontVariantNumeric}`;
    }),
  );
  assert.ok(styles.length > 10);
  for (const style of new Set(styles)) assert.match(style, /^right .*tabular-nums/);
  assert.equal(await page.locator("td.number:text-is('NaN'), td.number:text-is('inf')").count(), 0);
});

test("copying gives tab-separated text and a table that word processors take", async () => {
  const figure = joined();
  const cells = await cellsOf(figure);
  await figure.hover();
  await figure.getByRole("button").first().click();
  await page.waitForFunction(() => document.getElementById("told").textContent !== "");
  const rows = (await clipboard("text/plain")).split("\n").map((row) => row.split("\t"));
  assert.equal(new Set(rows.map((row) => row.length)).size, 1, "a rectangle");
  assert.deepEqual(rows.flat().filter(Boolean).sort(), cells.map((text) => text.replace(/\s*\n\s*/g, " ")).filter(Boolean).sort());

  const markup = await clipboard("text/html");
  const spans = await figure.locator("[colspan], [rowspan]").count();
  assert.equal((markup.match(/<t[hd][^>]* (?:row|col)span=/g) ?? []).length, spans);
  assert.match(markup, /border-collapse:\s*collapse/);
  assert.match(markup, /<t[hd][^>]*style="[^"]*border/);
  assert.doesNotMatch(markup, /<(script|a|button|svg)\b/);
});

test("saving as CSV gives the same cells, and no text that a spreadsheet would run", async () => {
  const figure = joined();
  const cells = await cellsOf(figure);
  await figure.hover();
  const [download] = await Promise.all([page.waitForEvent("download"), figure.getByRole("button").nth(1).click()]);
  assert.match(download.suggestedFilename(), /\.csv$/);
  const text = readFileSync(await download.path(), "utf8");
  assert.ok(text.startsWith("\ufeff"), "spreadsheets know it as UTF-8");
  const rows = parseCsv(text.slice(1));
  assert.equal(new Set(rows.map((row) => row.length)).size, 1, "a rectangle");
  assert.deepEqual(rows.flat().filter(Boolean).sort(), cells.filter(Boolean).sort());
});

test("marks of notes and notes lead to each other", async () => {
  const marks = page.locator("figure.table sup a");
  assert.ok((await marks.count()) > 0, "a table with notes");
  const broken = await page.$$eval("figure.table sup a, figure.table .notes a", (all) =>
    all.filter((link) => !document.getElementById(link.hash.slice(1))).map((link) => link.hash),
  );
  assert.deepEqual(broken, []);
  const unlike = await page.$$eval("figure.table sup a", (all) =>
    all.filter((mark) => document.querySelector(`${mark.hash} a`).textContent !== `${mark.textContent}.`).length,
  );
  assert.equal(unlike, 0, "mark and note bear the same letter");
  const mark = marks.last();
  const note = new URL(await mark.evaluate((link) => link.href)).hash;
  await mark.click();
  await page.waitForFunction((hash) => location.hash === hash, note);
  assert.ok(await page.locator(note).isVisible());
  await page.locator(`${note} a`).click();
  const back = `#${await mark.getAttribute("id")}`; // the very mark, not the note's first
  await page.waitForFunction((hash) => location.hash === hash, back);
});

test("letters of notes follow their first marks in reading order", async () => {
  const firsts = await page.$$eval("figure.table:has(sup)", (figures) =>
    figures.map((figure) => [...new Set([...figure.querySelectorAll("thead sup a, tbody sup a")].map((mark) => mark.textContent))].join("")),
  );
  for (const letters of firsts) assert.equal(letters, "abcdefghijklmnopqrstuvwxyz".slice(0, letters.length));
});

test("a wide table scrolls in its own box, by keyboard too", async () => {
  await page.setViewportSize({ width: 420, height: 700 });
  await page.locator("figure.table").first().scrollIntoViewIfNeeded();
  const box = page.locator("figure.table > .box[tabindex='0']").first();
  await box.waitFor();
  await box.focus();
  await page.keyboard.press("ArrowRight");
  await page.waitForFunction(() => document.activeElement.scrollLeft > 0);
  const overflow = await page.evaluate(() => document.documentElement.scrollWidth - document.documentElement.clientWidth);
  assert.ok(overflow <= 0, `the page is ${overflow} px too wide`);
  await page.setViewportSize({ width: 1280, height: 900 });
});

test("header rows of a long table stay in view", async () => {
  await page.setViewportSize({ width: 1280, height: 320 });
  const id = await page.$$eval("figure.table", (all) => {
    const long = all.filter((figure) => figure.querySelector("table")?.tBodies[0].rows.length >= 4 && figure.querySelector("thead"));
    return long.sort((one, other) => other.querySelector("table").rows.length - one.querySelector("table").rows.length)[0].id;
  });
  const figure = page.locator(`#${id}`);
  await figure.scrollIntoViewIfNeeded();
  await page.evaluate((name) => {
    const rows = document.querySelectorAll(`#${name} tbody tr`);
    rows[rows.length >> 1].scrollIntoView({ block: "start" });
  }, id);
  await page.waitForFunction((name) => {
    const element = document.getElementById(name);
    const head = element.querySelector("thead").getBoundingClientRect().top;
    const box = element.querySelector(".box").getBoundingClientRect().top;
    return box < 0 && Math.abs(head) <= 2;
  }, id);
  await page.setViewportSize({ width: 1280, height: 900 });
});

test("nothing was said on the console", () => assert.deepEqual(page.said, []));
