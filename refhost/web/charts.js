// Charts are drawn as they come into view, and all of them before printing.

const charts = { screenTheme: null, fileTheme: null, drawn: new WeakSet(), near: new Set(), timer: 0 };
const kGrowth = 1.2; // a picture that needs a little more room than was kept is fitted into it

// Where the themes differ in a colour, the page's scheme decides: a switch needs no new drawing.
function pairColors(light, dark) {
  if (light !== null && typeof light === "object" && !Array.isArray(light)) {
    const keys = new Set([...Object.keys(light), ...Object.keys(dark ?? {})]);
    return Object.fromEntries([...keys].map((key) => [key, pairColors(light[key], dark?.[key])]));
  }
  if (Array.isArray(light)) return light.map((entry, at) => pairColors(entry, dark?.[at]));
  const isColor = (text) => typeof text === "string" && /^(#|rgb|hsl|[a-z]+$)/i.test(text);
  if (isColor(light) && isColor(dark) && light !== dark) return `light-dark(${light}, ${dark})`;
  return light ?? dark;
}

const chartText = (figure) => figure.querySelector('script[type="application/json"]')?.textContent;
const lines = (element) => element?.textContent.trim().split("\n") ?? [];

// The document of a chart on its own: with its texts, and the light theme.
function chartDocument(figure) {
  const document = JSON.parse(chartText(figure));
  const title = { text: lines(figure.querySelector(".title")), anchor: "start" };
  const subtitle = lines(figure.querySelector(".subtitle"));
  if (subtitle.length) title.subtitle = subtitle;
  return { ...document, title, background: "#ffffff", config: charts.fileTheme };
}

function embed(box, document, tooltip) {
  // The drawing library changes what it is given.
  return vegaEmbed(box, structuredClone(document), {
    mode: "vega-lite",
    renderer: "svg",
    ast: true,
    actions: false,
    defaultStyle: false,
    tooltip,
  });
}

function showPopup(_handler, event, _item, value) {
  const popup = document.getElementById("popup");
  popup.hidden = value === null || value === undefined || value === "";
  if (popup.hidden) return;
  popup.textContent = String(value);
  const { width, height } = popup.getBoundingClientRect();
  const besides = event.clientX + 14 + width > root.clientWidth ? -width - 14 : 14;
  const below = event.clientY + 14 + height > root.clientHeight ? -height - 10 : 14;
  popup.style.left = `${Math.max(4, event.clientX + besides)}px`;
  popup.style.top = `${Math.max(4, event.clientY + below)}px`;
}

async function draw(figure) {
  const box = figure.querySelector(".picture");
  if (!box || charts.drawn.has(figure)) return;
  charts.drawn.add(figure);
  const room = box.querySelector("svg").getAttribute("height");
  const kept = box.getBoundingClientRect().height;
  const sheet = document.createElement("div");
  try {
    await embed(sheet, { ...JSON.parse(chartText(figure)), background: null, config: charts.screenTheme }, showPopup);
    const picture = sheet.querySelector("svg");
    // A group of marks that has none is announced as a picture without a name.
    for (const group of sheet.querySelectorAll('[role="graphics-symbol"]:not([aria-label])'))
      for (const name of ["role", "aria-roledescription"]) group.removeAttribute(name);
    box.style.minHeight = `${kept}px`; // nothing below it moves
    if (picture.getAttribute("height") <= room * kGrowth) picture.style.maxHeight = `${kept}px`;
    box.replaceChildren(sheet);
    box.classList.replace("waiting", "drawn");
  } catch {
    const line = document.createElement("p");
    line.className = "not-drawn";
    line.textContent = word("not-drawn");
    box.replaceWith(line);
  }
}

// Where the layout changes anyway, on another window or on paper, pictures take the size they want.
function releaseBoxes() {
  for (const box of document.querySelectorAll(".picture.drawn")) {
    box.style.minHeight = "";
    box.querySelector("svg").style.maxHeight = "";
  }
}

// One after the other, and while the page scrolls none: a frame has to stay short.
function drawNear(pause) {
  clearTimeout(charts.timer);
  if (charts.near.size === 0) return;
  charts.timer = setTimeout(() => {
    const [figure] = charts.near;
    charts.near.delete(figure);
    draw(figure).then(() => drawNear(0));
  }, pause);
}

// The picture as a file, drawn apart from the page and so without its styles.
async function pictureOf(figure, take) {
  const { view } = await embed(document.createElement("div"), chartDocument(figure), false);
  const picture = await take(view);
  view.finalize();
  return picture;
}

const chartName = (figure, ending) => fileName(figure.querySelector(".title").textContent, ending);

const chartActions = {
  "save-svg": async (figure) => {
    const text = await pictureOf(figure, (view) => view.toSVG());
    save(new Blob([text], { type: "image/svg+xml" }), chartName(figure, "svg"));
  },
  "save-png": async (figure) => {
    const canvas = await pictureOf(figure, (view) => view.toCanvas(2));
    canvas.toBlob((blob) => save(blob, chartName(figure, "png")), "image/png");
  },
  "copy-json": (figure, button) =>
    copy({ "text/plain": JSON.stringify(chartDocument(figure), null, 1) }, button),
};

function startCharts() {
  const themes = document.getElementById("chart-themes");
  if (!themes) return;
  const { light, dark } = JSON.parse(themes.textContent);
  charts.fileTheme = light;
  charts.screenTheme = pairColors(light, dark);
  const tools = document.getElementById("chart-tools").content.firstElementChild;
  const figures = [...document.querySelectorAll("figure.chart")].filter(chartText);
  const observer = new IntersectionObserver(
    (entries) => {
      for (const { target, isIntersecting } of entries) {
        if (isIntersecting) charts.near.add(target);
        else charts.near.delete(target);
      }
      drawNear(60);
    },
    { rootMargin: "300px" },
  );
  for (const figure of figures) {
    const bar = tools.cloneNode(true);
    bar.setAttribute("aria-labelledby", figure.querySelector(".title").id);
    figure.querySelector(":scope > .below").before(bar);
    observer.observe(figure);
  }
  addEventListener("beforeprint", () => {
    figures.forEach(draw);
    releaseBoxes();
  });
  addEventListener("resize", releaseBoxes);
  const popup = document.getElementById("popup");
  const onScroll = () => {
    popup.hidden = true;
    drawNear(60);
  };
  addEventListener("scroll", onScroll, { passive: true });
}
