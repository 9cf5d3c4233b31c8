// Making elements. Texts of the schema only ever become text nodes and attribute values, never markup.

function append(parent, children) {
  for (const child of children.flat(Infinity)) {
    if (child !== null && child !== undefined && child !== false) parent.append(child);
  }
  return parent;
}

function setAttributes(element, attributes) {
  for (const [name, value] of Object.entries(attributes)) {
    if (value === null || value === undefined || value === false) continue;
    if (name.startsWith("on")) element.addEventListener(name.slice(2), value);
    else element.setAttribute(name, value === true ? "" : value);
  }
}

// h("a", {href: "#/", class: "x"}, "text", element, [more]); false and null are left out.
function h(tag, attributes = {}, ...children) {
  const element = document.createElement(tag);
  setAttributes(element, attributes);
  return append(element, children);
}

function svg(tag, attributes = {}, ...children) {
  const element = document.createElementNS("http://www.w3.org/2000/svg", tag);
  setAttributes(element, attributes);
  return append(element, children);
}

const ICONS = {
  table: "M2 3.5h12v9H2zM2 6.5h12M6.5 6.5v6",
  view: "M1.5 8S4 3.8 8 3.8 14.5 8 14.5 8 12 12.2 8 12.2 1.5 8 1.5 8zM8 6.2a1.8 1.8 0 1 1 0 3.6 1.8 1.8 0 0 1 0-3.6z",
  synonym: "M9 4h4v4M13 4 7.5 9.5M6 5H3v8h8v-3",
  column: "M3 4h10M3 8h10M3 12h6",
  sequence: "M2.5 12.5h3v-3h4v-3h4v-3",
  function: "M10.5 3.2c-3 0-2 9.6-5 9.6M4.5 7h6",
  type: "M3 4.5V3h10v1.5M8 3v10M6 13h4",
  procedure: "M5 4 2 8l3 4M11 4l3 4-3 4",
  search: "M7 2.5a4.5 4.5 0 1 1 0 9 4.5 4.5 0 0 1 0-9zM10.4 10.4 14 14",
  menu: "M2 4h12M2 8h12M2 12h12",
  auto: "M8 2.5a5.5 5.5 0 1 1 0 11zM8 2.5a5.5 5.5 0 1 0 0 11",
  light: "M8 5.2a2.8 2.8 0 1 1 0 5.6 2.8 2.8 0 0 1 0-5.6zM8 1v1.6M8 13.4V15M1 8h1.6M13.4 8H15M3 3l1.2 1.2M11.8 11.8 13 13M13 3l-1.2 1.2M4.2 11.8 3 13",
  dark: "M13 9.6A5.4 5.4 0 0 1 6.4 3a5.4 5.4 0 1 0 6.6 6.6z",
  chevron: "M6 3.5 10.5 8 6 12.5",
};
function icon(name) {
  return svg(
    "svg",
    {class: `icon ${name}`, viewBox: "0 0 16 16", "aria-hidden": "true"},
    svg("path", {d: ICONS[name]}),
  );
}

const NUMBER = new Intl.NumberFormat("en");
function count(n, one, many = `${one}s`) {
  return `${NUMBER.format(n)} ${n === 1 ? one : many}`;
}

// Fills `container` with make(item) for each item, a hundred at a time as the reader comes near.
function fillLazily(container, items, make, scroller = document.getElementById("main")) {
  let next = 0;
  const sentinel = h(container.tagName === "TBODY" ? "tr" : "div", {"aria-hidden": "true"});
  const addSome = () => {
    const end = Math.min(next + 100, items.length);
    for (; next < end; ++next) sentinel.before(make(items[next]));
    if (next === items.length) {
      observer.disconnect();
      sentinel.remove();
    }
  };
  const observer = new IntersectionObserver(
    (entries) => {
      if (entries.some((entry) => entry.isIntersecting)) addSome();
    },
    {root: scroller, rootMargin: "800px"},
  );
  container.replaceChildren(sentinel);
  observer.observe(sentinel);
  addSome();
}
