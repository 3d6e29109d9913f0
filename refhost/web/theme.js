// Light, dark or as the system has it. Set before the page shows, so that nothing flashes.

const kThemeKey = "nonpar-theme";
const root = document.documentElement;

function storedTheme() {
  try {
    const theme = localStorage.getItem(kThemeKey);
    return ["light", "dark", "system"].includes(theme) ? theme : "light";
  } catch {
    return "light"; // a page opened from disk may have no store
  }
}

function setTheme(theme) {
  root.dataset.theme = theme;
  try {
    localStorage.setItem(kThemeKey, theme);
  } catch {
    // the choice then lasts as long as the page
  }
}

root.dataset.theme = storedTheme();
root.classList.add("scripted");

function startThemeSwitch() {
  const box = document.querySelector(".theme");
  box.hidden = false;
  for (const input of box.querySelectorAll("input")) {
    input.checked = input.value === root.dataset.theme;
    input.addEventListener("change", () => setTheme(input.value));
  }
}
