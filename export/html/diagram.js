// The entity-relationship diagram: boxes with key columns, lines with crow's feet, zoom and pan.

const MOST_TABLES = data.view.mostTables; // drawn without being asked twice
const HEADER = 30,
  LINE = 19,
  PAD = 11,
  MARKS = 30;

const measure = (() => {
  const context = document.createElement("canvas").getContext("2d");
  return (text, font) => {
    context.font = `${font} ${getComputedStyle(document.body).fontFamily}`;
    return context.measureText(text).width;
  };
})();

function shorten(text, most = 34) {
  return text.length > most ? `${text.slice(0, most - 1)}…` : text;
}

// What a box shows: all columns, or the keys with a line for the rest.
function makeBox(table, allColumns, withOwner) {
  const foreign = new Set(table.outgoing.flatMap((relation) => relation.fromColumns));
  const shown = table.columns.filter(
    (column) => allColumns || column.flags & PRIMARY || foreign.has(column.position),
  );
  const rows = shown.slice(0, 40).map((column) => ({
    position: column.position,
    name: shorten(column.name),
    type: allColumns ? shorten(column.type, 22) : "",
    primary: column.flags & PRIMARY,
    foreign: foreign.has(column.position),
  }));
  const rest = table.rawColumns.length - rows.length;
  // Room for both marks where a column has both.
  const marks = rows.some((row) => row.primary && row.foreign) ? 2 * MARKS - 8 : MARKS;
  const widths = rows.map(
    (row) => marks + measure(row.name, "12px") + (row.type ? measure(row.type, "11px") + 16 : 0),
  );
  const label = shorten(withOwner ? table.title : table.name);
  const width = Math.max(118, measure(label, "650 13px") + 2 * PAD + 4, ...widths.map((w) => w + 2 * PAD));
  const height = HEADER + rows.length * LINE + (rest > 0 ? LINE : 0) + (rows.length || rest > 0 ? 9 : 0);
  return {table, label, rows, rest, marks, width: Math.ceil(width), height};
}

function rowY(box, position) {
  const index = box.rows.findIndex((row) => row.position === position);
  return box.y + (index < 0 ? HEADER / 2 : HEADER + 5 + index * LINE + LINE / 2);
}

function drawBox(box, focus) {
  const {table, label, rows, rest, marks, width, height} = box;
  const g = svg("a", {
    class: `node${table === focus ? " focus" : ""}`,
    href: table.href,
    transform: `translate(${box.x} ${box.y})`,
    "aria-label": `${table.kind} ${table.title}, ${count(table.outgoing.length, "reference")}, referred to by ${table.incoming.length}`,
  });
  g.append(
    svg(
      "title",
      {},
      [table.title, count(table.rawColumns.length, "column"), table.comment].filter(Boolean).join("\n"),
    ),
    svg("rect", {class: "box", width, height, rx: 8}),
    svg("path", {class: "title", d: `M1 ${HEADER}V8a7 7 0 0 1 7-7H${width - 8}a7 7 0 0 1 7 7V${HEADER}z`}),
    svg("text", {class: "title-text", x: PAD, y: 20}, label),
  );
  if (rows.length || rest > 0)
    g.append(svg("line", {class: "rule", x1: 0.6, x2: width - 0.6, y1: HEADER, y2: HEADER}));
  rows.forEach((row, i) => {
    const y = HEADER + 5 + i * LINE + 14;
    if (row.primary) g.append(svg("text", {class: "key-mark", x: PAD, y: y - 0.5}, "PK"));
    if (row.foreign)
      g.append(
        svg("text", {class: "key-mark foreign", x: PAD + (row.primary ? MARKS - 8 : 0), y: y - 0.5}, "FK"),
      );
    g.append(svg("text", {x: PAD + marks - 4, y}, row.name));
    if (row.type) g.append(svg("text", {class: "small", x: width - PAD, y, "text-anchor": "end"}, row.type));
  });
  if (rest > 0)
    g.append(
      svg(
        "text",
        {class: "small", x: PAD + marks - 4, y: HEADER + 5 + rows.length * LINE + 14},
        rows.length ? `+ ${rest} more` : count(rest, "column"),
      ),
    );
  return g;
}

// A line's end at (x, y); `out` is 1 where the line leaves to the right, -1 to the left.
function crowsFoot(x, y, out) {
  return `M${x + 13 * out} ${y}L${x} ${y - 6}M${x + 13 * out} ${y}L${x} ${y + 6}`;
}
function bar(x, y, out, distance = 9) {
  return `M${x + distance * out} ${y - 6}v12`;
}

function drawLine(relation, from, to, bends) {
  const a = {y: rowY(to, relation.toColumns[0])}; // the referenced end
  const b = {y: rowY(from, relation.fromColumns[0])}; // the referencing end
  let path;
  if (from === to) {
    Object.assign(a, {x: to.x + to.width, out: 1});
    Object.assign(b, {x: to.x + to.width, out: 1});
    if (Math.abs(a.y - b.y) < 8) b.y = a.y + 16;
    path = `M${a.x} ${a.y}C${a.x + 64} ${a.y} ${a.x + 64} ${b.y} ${b.x} ${b.y}`;
  } else {
    const rightwards = to.x + to.width / 2 <= from.x + from.width / 2;
    Object.assign(a, rightwards ? {x: to.x + to.width, out: 1} : {x: to.x, out: -1});
    Object.assign(b, rightwards ? {x: from.x, out: -1} : {x: from.x + from.width, out: 1});
    const ends = rightwards ? [a, b] : [b, a];
    // Straight out of the layer first, past wider boxes above and below.
    const leave = {x: ends[0].x + (rightwards ? to : from).spare, y: ends[0].y};
    const points = [leave, ...bends, ends[1]];
    path = `M${ends[0].x} ${ends[0].y}H${leave.x}`;
    for (let i = 1; i < points.length; ++i) {
      const [p, q] = [points[i - 1], points[i]];
      const reach = Math.max(18, Math.min(70, Math.abs(q.x - p.x) / 2));
      path += i % 2 === 0 ? `L${q.x} ${q.y}` : `C${p.x + reach} ${p.y} ${q.x - reach} ${q.y} ${q.x} ${q.y}`;
    }
  }
  const g = svg("g", {class: "edge"});
  g.append(
    svg("title", {}, describeRelation(relation)),
    svg("path", {class: "hit", d: path}),
    svg("path", {d: path}),
    svg("path", {d: relation.oneToOne ? bar(b.x, b.y, b.out) : crowsFoot(b.x, b.y, b.out)}),
    svg("circle", {class: "dot", cx: b.x + (relation.oneToOne ? 15 : 17) * b.out, cy: b.y, r: 3.4}),
    svg("path", {d: bar(a.x, a.y, a.out, 7)}),
    relation.optional
      ? svg("circle", {class: "dot", cx: a.x + 14 * a.out, cy: a.y, r: 3.4})
      : svg("path", {d: bar(a.x, a.y, a.out, 11)}),
  );
  return g;
}

// A diagram of `some` tables with what relates them. Laid out when it is first in the document.
function makeDiagram(some, {focus = null, allColumns = false} = {}) {
  const alike = new Map(); // how many share a name: those are told apart by their owners
  for (const {name} of some) alike.set(name, (alike.get(name) ?? 0) + 1);
  const boxes = some.map((table) => makeBox(table, allColumns, alike.get(table.name) > 1));
  const position = new Map(some.map((table, i) => [table, i]));
  const lines = relationsAmong(some).map((relation) => ({
    relation,
    from: position.get(relation.from),
    to: position.get(relation.to),
  }));
  const size = layOut(boxes, lines);
  const view = svg("g");
  const edges = svg("g");
  const nodes = svg("g");
  view.append(edges, nodes);
  const edgesOf = new Map(some.map((table) => [table, []]));
  for (const {relation, from, to, bends} of lines) {
    const edge = drawLine(relation, boxes[from], boxes[to], bends);
    edgesOf.get(relation.from).push(edge);
    edgesOf.get(relation.to).push(edge);
    edges.append(edge);
  }
  for (const box of boxes) {
    const node = drawBox(box, focus);
    const light = (on) => edgesOf.get(box.table).forEach((edge) => edge.classList.toggle("lit", on));
    for (const [event, on] of [
      ["pointerenter", true],
      ["pointerleave", false],
      ["focus", true],
      ["blur", false],
    ])
      node.addEventListener(event, () => light(on));
    nodes.append(node);
  }
  const picture = svg(
    "svg",
    {
      role: "group",
      tabindex: "0",
      "aria-label": `Diagram of ${count(some.length, "table")} and ${count(lines.length, "relationship")}. Arrow keys move it, plus and minus zoom, 0 fits it.`,
    },
    view,
  );
  return h("div", {class: "diagram"}, picture, panAndZoom(picture, view, size));
}

// The neighbourhood of one table with the choice of its distance (1 to 3).
function makeNeighbourhood(table, distance, onDistance) {
  const root = h("div", {class: "neighbourhood"});
  let allColumns = false,
    all = false;
  const draw = () => {
    const near = neighbourhood(table, distance);
    const some = all ? near : near.slice(0, MOST_TABLES);
    root.replaceChildren(
      h(
        "div",
        {class: "bar"},
        h("span", {class: "muted", id: "distance-label"}, "Distance"),
        h(
          "span",
          {role: "radiogroup", "aria-labelledby": "distance-label", class: "chips"},
          [1, 2, 3].map((n) =>
            h(
              "button",
              {
                type: "button",
                role: "radio",
                "aria-checked": String(n === distance),
                "data-distance": n,
                tabindex: n === distance ? "0" : "-1",
                onclick: () => choose(n),
                onkeydown: (event) => {
                  const by = {ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1}[event.key];
                  if (by) {
                    event.preventDefault();
                    choose(((n - 1 + by + 3) % 3) + 1);
                  }
                },
              },
              String(n),
            ),
          ),
        ),
        h(
          "button",
          {
            type: "button",
            "aria-pressed": String(allColumns),
            onclick: () => {
              allColumns = !allColumns;
              draw();
            },
          },
          "All columns",
        ),
        h(
          "span",
          {class: "muted", role: "status"},
          some.length < near.length
            ? `The nearest ${some.length} of ${count(near.length, "table")}`
            : count(near.length, "table"),
        ),
        some.length < near.length &&
          h(
            "button",
            {
              type: "button",
              onclick: () => {
                all = true;
                draw();
              },
            },
            `Draw all ${NUMBER.format(near.length)}`,
          ),
      ),
      makeDiagram(some, {focus: table, allColumns}),
    );
  };
  const choose = (n) => {
    distance = n;
    all = false;
    draw();
    root.querySelector(`[data-distance="${n}"]`).focus();
    onDistance?.(n);
  };
  draw();
  return root;
}
