// Makes the reports of all examples and of the jobs beside this file, then runs the browser tests:
//   node run.mjs NONPAR NODE_MODULES REPORTS
// NONPAR is the command line tool, REPORTS a folder for what it writes. Ends in the test runner's
// summary, with its exit code.

import { spawnSync } from "node:child_process";
import { mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { basename, dirname, join, resolve } from "node:path";
import { fileURLToPath } from "node:url";

const here = dirname(fileURLToPath(import.meta.url));
const [tool, modules, reports] = process.argv.slice(2).map((path) => resolve(path));
mkdirSync(reports, { recursive: true });

function run(job, name, ...options) {
  const made = spawnSync(tool, ["run", job, "-o", join(reports, `${name}.html`), "--format", "html", "--quiet", ...options], {
    encoding: "utf8",
  });
  if (made.status !== 0) throw new Error(`${name}: exit code ${made.status}\n${made.stderr}`);
}

// A job of so many splits of one document that the report holds more than a thousand tables.
function writeManySplits(file) {
  const job = JSON.parse(readFileSync(join(here, "jobs", "hostile.json"), "utf8"));
  job.title = "Many splits";
  job.variables.push({ name: "site", label: "Site", type: "numeric" });
  const split = (at) => ({ document: join(here, "jobs", "one-test.xml"), variables: ["site"], values: [at] });
  job.splits = Array.from({ length: 500 }, (_, at) => split(at + 1));
  writeFileSync(file, JSON.stringify(job));
}

const examples = join(here, "..", "..", "examples");
for (const name of readdirSync(examples, { withFileTypes: true }))
  if (name.isDirectory()) run(join(examples, name.name, "job.json"), name.name);
for (const name of readdirSync(join(here, "jobs")).filter((file) => file.endsWith(".json")))
  run(join(here, "jobs", name), basename(name, ".json"));
run(join(examples, "insect-sprays", "job.json"), "german", "--language", "de");
writeManySplits(join(reports, "many.json"));
run(join(reports, "many.json"), "many");

const tests = readdirSync(here).filter((file) => file.endsWith(".test.mjs"));
const { status } = spawnSync(process.execPath, ["--test", ...tests.map((file) => join(here, file))], {
  stdio: "inherit",
  env: { ...process.env, NONPAR_REPORTS: reports, NONPAR_NODE_MODULES: modules },
});
process.exit(status ?? 1);
