// Copying and saving of tables, and their way through the page.

const escapeMarkup = (text) =>
  text.replace(/[&<>"]/g, (sign) => ({ "&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;" })[sign]);

// Marks of footnotes are no part of a number.
function cellText(cell) {
  let text = "";
  for (const node of cell.childNodes) if (node.nodeName !== "SUP") text += node.textContent;
  return text.trim();
}

// The table as a rectangle of texts: a joined cell fills its first field and leaves the rest empty.
function rectangle(table) {
  const rows = [...table.rows].map(() => []);
  [...table.rows].forEach((row, at) => {
    let column = 0;
    for (const cell of row.cells) {
      while (rows[at][column] !== undefined) ++column;
      for (let down = 0; down < cell.rowSpan && at + down < rows.length; ++down)
        for (let along = 0; along < cell.colSpan; ++along)
          rows[at + down][column + along] = down || along ? "" : cellText(cell);
      column += cell.colSpan;
    }
  });
  return rows;
}

const asTabText = (table) =>
  rectangle(table)
    .map((row) => row.map((text) => text.replace(/[\t\r\n]+/g, " ")).join("\t"))
    .join("\n");

// A text that a spreadsheet would take for a formula gets an apostrophe; numbers stay as they are.
function csvField(text) {
  const isNumber = /^[-+]?[\d.]+(e[-+]?\d+)?%?$/i.test(text);
  const safe = /^[=+\-@\t\r]/.test(text) && !isNumber ? `'${text}` : text;
  return /[",\r\n]/.test(safe) ? `"${safe.replaceAll('"', '""')}"` : safe;
}

const asCsv = (table) =>
  rectangle(table)
    .map((row) => row.map(csvField).join(","))
    .join("\r\n") + "\r\n";

// For word processors: the few styles that they keep, written at each cell.
function asMarkup(figure) {
  const kFont = "font-family:Arial,sans-serif;font-size:10pt;color:#000";
  const table = figure.querySelector("table");
  const cell = (element) => {
    const heads = element.closest("thead") ? "font-weight:bold;" : "";
    const align = element.matches(".number") ? "right" : element.matches(".over") ? "center" : "left";
    const spans =
      (element.colSpan > 1 ? ` colspan="${element.colSpan}"` : "") +
      (element.rowSpan > 1 ? ` rowspan="${element.rowSpan}"` : "");
    const marks = [...element.querySelectorAll("sup")].map((mark) => mark.textContent).join(",");
    const name = element.nodeName.toLowerCase();
    return (
      `<${name}${spans} style="border:1px solid #808080;padding:2pt 5pt;vertical-align:top;` +
      `font-weight:normal;${heads}text-align:${align}">${escapeMarkup(cellText(element))}` +
      `${marks ? `<sup>${escapeMarkup(marks)}</sup>` : ""}</${name}>`
    );
  };
  const rows = [...table.rows].map((row) => `<tr>${[...row.cells].map(cell).join("")}</tr>`);
  const below = [...figure.querySelectorAll(":scope > figcaption > p, .notes > li")];
  const notes = below.map((note) => {
    const line = note.textContent.trim();
    return `<p style="${kFont};font-size:9pt;margin:2pt 0">${escapeMarkup(line)}</p>`;
  });
  const title = escapeMarkup(table.caption.textContent.trim());
  return (
    `<p style="${kFont};font-weight:bold;margin:0 0 4pt">${title}</p>` +
    `<table style="border-collapse:collapse;${kFont}">${rows.join("")}</table>${notes.join("")}`
  );
}

const tableActions = {
  "copy-table": (figure, button) =>
    copy({ "text/plain": asTabText(figure.querySelector("table")), "text/html": asMarkup(figure) }, button),
  "save-csv": (figure) => {
    const table = figure.querySelector("table");
    const text = `\ufeff${asCsv(table)}`; // the mark tells spreadsheets that it is UTF-8
    save(new Blob([text], { type: "text/csv;charset=utf-8" }), fileName(table.caption.textContent, "csv"));
  },
};

// A table that fits needs no box of its own, so that its header stays at the top of the window; one
// that doesn't can be scrolled by keyboard.
function fitTable(figure) {
  const box = figure.querySelector(":scope > .box");
  const table = box.firstElementChild;
  const fits = table.offsetWidth <= figure.clientWidth;
  box.classList.toggle("whole", fits);
  if (fits) {
    for (const name of ["tabindex", "role", "aria-labelledby"]) box.removeAttribute(name);
  } else {
    box.tabIndex = 0;
    box.setAttribute("role", "region");
    box.setAttribute("aria-labelledby", table.caption.id);
  }
}

// On paper nothing scrolls: a table that is too wide for the page gets a page across, and what is too
// wide even for that is made smaller.
const kPaperWidth = { upright: 690, across: 1010 }; // pixels between the margins of A4
const kPaperScale = 0.834; // of the type on paper to that on the screen

function fitToPaper(figures) {
  root.classList.add("measured");
  const widths = figures.map((figure) => figure.querySelector("table").offsetWidth * kPaperScale);
  root.classList.remove("measured");
  figures.forEach((figure, at) => {
    const isWide = widths[at] > kPaperWidth.upright;
    figure.classList.toggle("wide", isWide);
    figure.querySelector(".box").style.zoom = isWide ? Math.min(1, kPaperWidth.across / widths[at]) : "";
  });
}

function fitToScreen(figures) {
  for (const figure of figures) figure.querySelector(".box").style.zoom = "";
}

// The way back from a note leads to the mark that was followed.
function returnToMark(event) {
  const mark = event.target.closest("sup > a");
  if (!mark) return;
  const note = document.getElementById(mark.hash.slice(1));
  note.querySelector("a").setAttribute("href", `#${mark.id}`);
}

function startTables() {
  const tools = document.getElementById("table-tools").content.firstElementChild;
  const near = new Set();
  const observer = new IntersectionObserver(
    (entries) => {
      for (const { target, isIntersecting } of entries) {
        if (!isIntersecting) {
          near.delete(target);
        } else {
          near.add(target);
          fitTable(target);
        }
      }
    },
    { rootMargin: "60%" },
  );
  const figures = [...document.querySelectorAll("figure.table:has(table)")];
  for (const figure of figures) {
    const bar = tools.cloneNode(true);
    bar.setAttribute("aria-labelledby", figure.querySelector("caption").id);
    figure.querySelector(":scope > figcaption").before(bar);
    observer.observe(figure);
  }
  addEventListener("resize", () => near.forEach(fitTable));
  addEventListener("beforeprint", () => fitToPaper(figures));
  addEventListener("afterprint", () => fitToScreen(figures));
  document.addEventListener("click", returnToMark);
}
