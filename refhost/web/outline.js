// The outline as a tree: arrow keys, folding, a filter, and the place in view.

const tree = { links: [], current: null };

const parentLink = (link) => link.parentElement.parentElement.closest("li")?.querySelector("a");
const childList = (link) => link.parentElement.querySelector(":scope > ul");
const isShown = (link) => link.getClientRects().length > 0;

function setFolded(link, folded) {
  if (!childList(link)) return;
  link.parentElement.classList.toggle("folded", folded);
  link.setAttribute("aria-expanded", String(!folded));
  if (folded && link.parentElement.contains(tree.focus)) moveTabStop(link);
}

function moveTabStop(link) {
  if (tree.focus) tree.focus.tabIndex = -1;
  tree.focus = link;
  link.tabIndex = 0;
}

function focusLink(link) {
  if (!link) return;
  moveTabStop(link);
  link.focus();
}

function shownBeside(link, step) {
  let at = tree.links.indexOf(link) + step;
  while (tree.links[at] && !isShown(tree.links[at])) at += step;
  return tree.links[at];
}

const kTreeKeys = {
  ArrowDown: (link) => focusLink(shownBeside(link, 1)),
  ArrowUp: (link) => focusLink(shownBeside(link, -1)),
  Home: () => focusLink(tree.links.find(isShown)),
  End: () => focusLink(tree.links.findLast(isShown)),
  ArrowRight: (link) => {
    if (link.getAttribute("aria-expanded") === "false") setFolded(link, false);
    else focusLink(childList(link)?.querySelector("a"));
  },
  ArrowLeft: (link) => {
    if (link.getAttribute("aria-expanded") === "true") setFolded(link, true);
    else focusLink(parentLink(link));
  },
};

function makeTree(list) {
  list.setAttribute("role", "tree");
  list.setAttribute("aria-labelledby", "outline-name");
  for (const inner of list.querySelectorAll("ul")) inner.setAttribute("role", "group");
  for (const item of list.querySelectorAll("li")) item.setAttribute("role", "none");
  tree.links = [...list.querySelectorAll("a")];
  for (const link of tree.links) {
    link.setAttribute("role", "treeitem");
    link.tabIndex = -1;
    if (!childList(link)) continue;
    link.setAttribute("aria-expanded", "true");
    const fold = document.createElement("span");
    fold.className = "fold";
    link.before(fold);
  }
  if (tree.links.length) moveTabStop(tree.links[0]);

  list.addEventListener("keydown", (event) => {
    const act = event.target.matches("a") && kTreeKeys[event.key];
    if (!act || event.altKey || event.ctrlKey || event.metaKey || event.shiftKey) return;
    event.preventDefault();
    act(event.target);
  });
  list.addEventListener("click", (event) => {
    if (event.target.matches(".fold")) {
      const link = event.target.nextElementSibling;
      setFolded(link, link.getAttribute("aria-expanded") === "true");
      return;
    }
    const link = event.target.closest("a");
    if (!link) return;
    moveTabStop(link);
    openOutline(false);
    markCurrent(link);
  });
}

// An entry stays when its text, the text of a heading above it or of an entry below it fits.
function filterTree(list, wanted) {
  list.classList.toggle("filtered", wanted !== "");
  let found = 0;
  const visit = (items, aboveFits) => {
    let any = false;
    for (const item of items.children) {
      const link = item.querySelector(":scope > a");
      const fits = link.textContent.toLocaleLowerCase().includes(wanted);
      if (fits) ++found;
      const inner = childList(link);
      const below = inner !== null && visit(inner, aboveFits || fits);
      item.classList.toggle("unmatched", !(fits || aboveFits || below));
      any ||= fits || below;
    }
    return any;
  };
  visit(list, false);
  return found;
}

function startFilter(list) {
  const input = document.getElementById("filter");
  input.parentElement.hidden = false;
  input.addEventListener("input", () => {
    const wanted = input.value.trim().toLocaleLowerCase();
    const found = filterTree(list, wanted);
    document.getElementById("found").textContent = wanted ? word("found").replace("^1", found) : "";
  });
  input.addEventListener("keydown", (event) => {
    if (event.key === "ArrowDown") {
      event.preventDefault();
      focusLink(tree.links.find(isShown));
    } else if (event.key === "Escape" && input.value) {
      event.preventDefault();
      event.stopPropagation();
      input.value = "";
      input.dispatchEvent(new Event("input"));
    }
  });
}

function markCurrent(link) {
  if (link === tree.current) return;
  tree.current?.removeAttribute("aria-current");
  tree.current = link;
  if (!link) return;
  link.setAttribute("aria-current", "location");
  const panel = document.getElementById("outline");
  const box = panel.getBoundingClientRect();
  const line = link.getBoundingClientRect();
  if (line.height === 0 || panel.scrollHeight <= panel.clientHeight) return;
  if (line.top < box.top + 80) panel.scrollTop += line.top - box.top - 80;
  else if (line.bottom > box.bottom - 40) panel.scrollTop += line.bottom - box.bottom + 40;
}

// The last target that begins above a line near the top. The one that was gone to comes first: it
// may be a small one, or too close to the end of the page to reach that line.
function followView() {
  const targets = tree.links.map((link) => document.getElementById(link.hash.slice(1)));
  const placeOf = new Map(targets.map((target, at) => [`#${target.id}`, at]));
  const kLine = 120;
  const top = (at) => targets[at].getBoundingClientRect().top;
  const linkInView = () => {
    const atEnd = window.innerHeight + window.scrollY >= root.scrollHeight - 2;
    const gone = placeOf.get(location.hash);
    if (gone !== undefined && top(gone) >= 0 && top(gone) <= (atEnd ? window.innerHeight : kLine)) return tree.links[gone];
    let low = 0;
    let high = targets.length - 1;
    while (low < high) {
      const middle = (low + high + 1) >> 1;
      if (top(middle) <= kLine) low = middle;
      else high = middle - 1;
    }
    return tree.links[low];
  };
  let waiting = false;
  const update = () => {
    if (waiting) return;
    waiting = true;
    requestAnimationFrame(() => {
      waiting = false;
      markCurrent(linkInView());
    });
  };
  addEventListener("scroll", update, { passive: true });
  addEventListener("resize", update, { passive: true });
  new ResizeObserver(update).observe(document.getElementById("results")); // parts that take their size
  update();
}

// On a narrow screen the outline lies over the page while it is open.
function openOutline(open) {
  root.classList.toggle("outline-open", open);
  document.querySelector(".outline-link").setAttribute("aria-expanded", String(open));
}

function startDrawer() {
  const opener = document.querySelector(".outline-link");
  opener.setAttribute("role", "button");
  opener.setAttribute("aria-controls", "outline");
  openOutline(false);
  const toggle = (event) => {
    event.preventDefault();
    const open = !root.classList.contains("outline-open");
    openOutline(open);
    if (open) document.getElementById("filter").focus();
  };
  opener.addEventListener("click", toggle);
  opener.addEventListener("keydown", (event) => {
    if (event.key === " ") toggle(event);
  });
  document.addEventListener("keydown", (event) => {
    if (event.key !== "Escape" || !root.classList.contains("outline-open")) return;
    openOutline(false);
    opener.focus();
  });
  document.addEventListener("click", (event) => {
    if (!root.classList.contains("outline-open")) return;
    if (!event.target.closest("#outline, .outline-link")) openOutline(false);
  });
}

function startOutline() {
  startDrawer();
  const list = document.querySelector("#outline > ul");
  if (!list) return;
  list.classList.add("tree");
  makeTree(list);
  startFilter(list);
  followView();
}
