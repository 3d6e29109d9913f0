// What outline, tables and charts share, and the start of all of them.

const word = (key) => document.getElementById("words").content.querySelector(`[data-word="${key}"]`).textContent;

function tell(text, button) {
  const told = document.getElementById("told");
  told.textContent = "";
  requestAnimationFrame(() => (told.textContent = text));
  if (!button || button.classList.contains("done")) return;
  const label = button.textContent;
  button.textContent = text;
  button.classList.add("done");
  setTimeout(() => {
    button.textContent = label;
    button.classList.remove("done");
  }, 1500);
}

// `texts` maps a type to its text. By the copy event markup arrives as it is, and a page from disk
// needs no permission; the clipboard object would parse the markup under the page's policy.
async function copy(texts, button) {
  const fill = (event) => {
    for (const [type, text] of Object.entries(texts)) event.clipboardData.setData(type, text);
    event.preventDefault();
  };
  document.addEventListener("copy", fill);
  let copied = document.execCommand("copy");
  document.removeEventListener("copy", fill);
  if (!copied)
    copied = await navigator.clipboard?.writeText(texts["text/plain"]).then(() => true, () => false);
  tell(word(copied ? "copied" : "copy-failed"), button);
}

function save(blob, name) {
  const link = document.createElement("a");
  link.href = URL.createObjectURL(blob);
  link.download = name;
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 60000);
}

// Signs that file systems refuse, and those that turn the direction of a text, become blanks.
function fileName(title, ending) {
  const name = title
    .replace(/[\\/:*?"<>|\u0000-\u001f\u200e\u200f\u202a-\u202e\u2066-\u2069]+/g, " ")
    .replace(/\s+/g, " ")
    .replace(/^[. ]+|[. ]+$/g, "")
    .slice(0, 80);
  return `${name || "nonpar"}.${ending}`;
}

const actions = { ...tableActions, ...chartActions };

document.addEventListener("DOMContentLoaded", () => {
  startThemeSwitch();
  startOutline();
  startTables();
  startCharts();
  document.addEventListener("click", (event) => {
    const button = event.target.closest?.("button[data-do]");
    if (button) actions[button.dataset.do](button.closest("figure"), button);
  });
});
