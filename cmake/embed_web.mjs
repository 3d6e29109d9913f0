// Turns the files of the HTML report into a C++ source:
//   node embed_web.mjs WEB_FOLDER NODE_MODULES OUTPUT.cpp
// Scripts and styles come with the hash by which the page's policy allows them.

import { createHash } from "node:crypto";
import { existsSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";

const [webFolder, modules, output] = process.argv.slice(2);

const kReportParts = ["theme.js", "outline.js", "tables.js", "charts.js", "report.js"];
const kDrawing = {
  kVega: "vega/build/vega.min.js",
  kVegaLite: "vega-lite/build/vega-lite.min.js",
  kVegaEmbed: "vega-embed/build/vega-embed.min.js",
};
// Dependencies of command line tools within the packages; nothing of them is in the bundles.
const kNotDrawn = new Set(["yargs", "commander", "iconv-lite", "rw"]);

const web = (name) => readFileSync(join(webFolder, name), "utf8").trimEnd();

// A script ends at the first "</script", wherever that stands.
function checked(name, text) {
  if (/<\/script|<\/style|<!--/i.test(text)) throw new Error(`${name} would end its own element`);
  return text;
}

function reportScript() {
  return `(() => {\n"use strict";\n${kReportParts.map(web).join("\n")}\n})();`;
}

function drawingScript(path) {
  const text = readFileSync(join(modules, path), "utf8");
  return text.replace(/^\/\/# sourceMappingURL=.*$/gm, "").trim();
}

function packageFolder(name, from) {
  for (let folder = from; ; folder = join(folder, "..", "..")) {
    const found = join(folder, "node_modules", name);
    if (existsSync(found)) return found;
    if (folder.length < modules.length) return join(modules, name);
  }
}

// The notices of everything that is bundled, each text once, under the names that it covers.
function notices() {
  const namesOf = new Map();
  const seen = new Set();
  const visit = (name, from) => {
    const folder = packageFolder(name, from);
    if (seen.has(folder) || kNotDrawn.has(name) || !existsSync(folder)) return;
    seen.add(folder);
    const facts = JSON.parse(readFileSync(join(folder, "package.json"), "utf8"));
    const file = ["LICENSE", "LICENSE.md", "LICENSE.txt", "LICENSE.BSD", "COPYING"].map((f) => join(folder, f)).find(existsSync);
    const text = file ? readFileSync(file, "utf8").replace(/\r/g, "").trim() : `License: ${facts.license}`;
    namesOf.set(text, [...(namesOf.get(text) ?? []), `${facts.name} ${facts.version}`]);
    for (const next of Object.keys(facts.dependencies ?? {})) visit(next, folder);
  };
  for (const path of Object.values(kDrawing)) visit(path.split("/")[0], join(modules, ".."));
  const parts = [...namesOf].map(([text, names]) => `${names.sort().join(", ")}\n\n${text}`);
  return parts.join(`\n\n${"-".repeat(72)}\n\n`);
}

const hashOf = (text) => `sha256-${createHash("sha256").update(text, "utf8").digest("base64")}`;

function literal(text) {
  if (text.includes(')WEB"')) throw new Error("a text holds the end of its literal");
  return `R"WEB(${text})WEB"`;
}

const plain = { kPage: web("page.html"), kNotices: notices() };
const hashed = { kStyle: checked("style.css", web("style.css")), kReport: checked("report", reportScript()) };
for (const [name, path] of Object.entries(kDrawing)) hashed[name] = checked(path, drawingScript(path));

const kLongTexts = '#pragma GCC diagnostic ignored "-Woverlength-strings"';
const lines = ['#include "refhost/writers/WebAssets.h"', "", kLongTexts, "", "namespace refhost::web {", ""];
for (const [name, text] of Object.entries(plain)) lines.push(`const std::string_view ${name} = ${literal(text)};`, "");
for (const [name, text] of Object.entries(hashed))
  lines.push(`const WebAsset ${name} = {${literal(text)},\n    "${hashOf(text)}"};`, "");
lines.push("}  // namespace refhost::web", "");
writeFileSync(output, lines.join("\n"));
