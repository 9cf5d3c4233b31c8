// Places boxes in layers from left (referenced) to right (referencing) and leads the lines between
// them. Knows boxes and lines only, nothing of tables.

const LAYER_GAP = 92,
  BOX_GAP = 26,
  PART_GAP = 56,
  LINE_SPACE = 14;

// boxes: [{width, height}], lines: [{from, to}] by box position, led from `from`'s left side to
// `to`'s right side. Sets x and y of each box, and `spare`, the width that its layer has to the right
// of it; each line gets `bends`, points that it passes through between its two ends, from the left.
// Returns the size of the whole.
function layOut(boxes, lines) {
  const parts = connectedParts(boxes, lines);
  const single = parts.filter((part) => part.boxes.length === 1);
  const placed = parts
    .filter((part) => part.boxes.length > 1)
    .map((part) => layOutPart(part.boxes, part.lines));
  if (single.length)
    placed.push(
      shelve(
        single.map(({boxes: [box]}) => ({width: box.width, height: box.height, boxes: [box], bends: []})),
        BOX_GAP,
      ),
    );
  for (const line of lines) if (line.from === line.to) line.bends = [];
  return shelve(
    placed.sort((a, b) => b.height - a.height),
    PART_GAP,
  );
}

// Of any number of items, for which Math.max with spread arguments is too small.
function largest(items, value) {
  return items.reduce((most, item) => Math.max(most, value(item)), -Infinity);
}

function connectedParts(boxes, lines) {
  const neighbours = boxes.map(() => []);
  for (const {from, to} of lines) {
    neighbours[from].push(to);
    neighbours[to].push(from);
  }
  const part = boxes.map(() => -1);
  const parts = [];
  boxes.forEach((_, start) => {
    if (part[start] >= 0) return;
    const members = [start];
    part[start] = parts.length;
    for (const member of members)
      for (const next of neighbours[member]) {
        if (part[next] < 0) {
          part[next] = parts.length;
          members.push(next);
        }
      }
    parts.push({boxes: members.map((member) => boxes[member]), lines: []});
  });
  for (const line of lines) {
    if (line.from !== line.to)
      parts[part[line.from]].lines.push({line, from: boxes[line.from], to: boxes[line.to]});
  }
  return parts;
}

// Puts groups of boxes side by side in rows of about the picture's width, and moves their contents.
function shelve(groups, gap) {
  const area = groups.reduce((sum, {width, height}) => sum + (width + gap) * (height + gap), 0);
  const wide = Math.max(
    Math.sqrt(area * 2.4),
    largest(groups, ({width}) => width),
  );
  let x = 0,
    y = 0,
    rowHeight = 0,
    width = 0;
  const boxes = [],
    bends = [];
  for (const group of groups) {
    if (x > 0 && x + group.width > wide) {
      x = 0;
      y += rowHeight + gap;
      rowHeight = 0;
    }
    for (const box of group.boxes) {
      box.x = (group.boxes.length > 1 ? box.x : 0) + x;
      box.y = (group.boxes.length > 1 ? box.y : 0) + y;
    }
    for (const bend of group.bends) {
      bend.x += x;
      bend.y += y;
    }
    for (const box of group.boxes) boxes.push(box);
    for (const bend of group.bends) bends.push(bend);
    x += group.width + gap;
    width = Math.max(width, x - gap);
    rowHeight = Math.max(rowHeight, group.height);
  }
  return {width, height: y + rowHeight, boxes, bends};
}

function layOutPart(boxes, lines) {
  const ranks = assignRanks(boxes, lines);
  splitTallRanks(boxes, lines, ranks);
  // A line over several layers gets a cell in each layer between. Lines that leave the same box share
  // these, as one trunk, so that a table with a hundred references stays readable.
  const cells = new Map(
    boxes.map((box) => [
      box,
      {box, width: box.width, height: box.height, left: [], right: [], trunk: new Map()},
    ]),
  );
  const layers = [];
  const put = (cell, rank) => {
    cell.rank = rank;
    (layers[rank] ??= []).push(cell);
  };
  for (const box of boxes) put(cells.get(box), ranks.get(box));
  const join = (left, right) => {
    left.right.push(right);
    right.left.push(left);
  };
  for (const entry of lines) {
    let [left, right] = [cells.get(entry.to), cells.get(entry.from)];
    if (left.rank > right.rank) [left, right] = [right, left];
    entry.way = [];
    let last = left;
    for (let rank = left.rank + 1; rank < right.rank; ++rank) {
      let cell = left.trunk.get(rank);
      if (!cell) {
        cell = {box: null, width: 0, height: LINE_SPACE, left: [], right: []};
        left.trunk.set(rank, cell);
        put(cell, rank);
        join(last, cell);
      }
      entry.way.push(cell);
      last = cell;
    }
    join(last, right);
  }
  // Trunks start in the middle of their layers, so that boxes of equal weight spread to both sides.
  layers.forEach((layer, i) => {
    const inner = layer.filter((cell) => cell.box),
      half = Math.ceil(inner.length / 2);
    layers[i] = [...inner.slice(0, half), ...layer.filter((cell) => !cell.box), ...inner.slice(half)];
  });
  orderLayers(layers);
  placeVertically(layers);
  let x = 0;
  for (const layer of layers) {
    const width = largest(layer, (cell) => cell.width);
    for (const cell of layer) Object.assign(cell, {x, span: width});
    x += width + LAYER_GAP;
  }
  const top = -largest(layers.flat(), (cell) => -cell.y);
  const bottom = largest(layers.flat(), (cell) => cell.y + cell.height);
  for (const cell of layers.flat()) {
    cell.y -= top;
    if (cell.box) Object.assign(cell.box, {x: cell.x, y: cell.y, spare: cell.span - cell.width});
  }
  const bends = [];
  for (const {line, way} of lines) {
    // From the referenced (left) to the referencing (right) end, straight through each layer.
    line.bends = way.flatMap((cell) => [
      {x: cell.x, y: cell.y + LINE_SPACE / 2},
      {x: cell.x + cell.span, y: cell.y + LINE_SPACE / 2},
    ]);
    for (const bend of line.bends) bends.push(bend);
  }
  return {width: x - LAYER_GAP, height: bottom - top, boxes, bends};
}

// The longest way from a box that refers to nothing; a line that would close a circle is left out.
function assignRanks(boxes, lines) {
  const referenced = new Map(boxes.map((box) => [box, new Set()]));
  const referencing = new Map(boxes.map((box) => [box, new Set()]));
  for (const {from, to} of lines) {
    referenced.get(from).add(to);
    referencing.get(to).add(from);
  }
  const ranks = new Map();
  const open = new Set();
  const visit = (start) => {
    const stack = [[start, referenced.get(start).values(), 0]];
    open.add(start);
    while (stack.length) {
      const top = stack[stack.length - 1];
      const {value: next, done} = top[1].next();
      if (done) {
        ranks.set(top[0], top[2]);
        open.delete(top[0]);
        stack.pop();
        if (stack.length) {
          const below = stack[stack.length - 1];
          below[2] = Math.max(below[2], top[2] + 1);
        }
      } else if (ranks.has(next)) {
        top[2] = Math.max(top[2], ranks.get(next) + 1);
      } else if (!open.has(next)) {
        open.add(next);
        stack.push([next, referenced.get(next).values(), 0]);
      }
    }
  };
  for (const box of boxes) if (!ranks.has(box)) visit(box);
  // A box that refers to nothing moves next to the first that refers to it.
  for (const box of boxes) {
    const right = [...referencing.get(box)].map((other) => ranks.get(other));
    if (!referenced.get(box).size && right.length) ranks.set(box, Math.max(0, Math.min(...right) - 1));
  }
  return ranks;
}

// A layer much taller than the picture is wide becomes several, so that a table with a hundred
// references is no tower.
function splitTallRanks(boxes, lines, ranks) {
  const area = boxes.reduce((sum, {width, height}) => sum + (width + LAYER_GAP) * (height + BOX_GAP), 0);
  const tall = Math.max(Math.sqrt(area) * 0.8, 420);
  const byRank = [];
  for (const box of boxes) (byRank[ranks.get(box)] ??= []).push(box);
  const degree = new Map(boxes.map((box) => [box, 0]));
  for (const {from, to} of lines) {
    degree.set(from, degree.get(from) + 1);
    degree.set(to, degree.get(to) + 1);
  }
  let shift = 0;
  byRank.forEach((members, rank) => {
    const height = members.reduce((sum, box) => sum + box.height + BOX_GAP, 0);
    const pieces = Math.max(1, Math.round(height / tall));
    members.sort((a, b) => degree.get(a) - degree.get(b));
    members.forEach((box, i) => ranks.set(box, rank + shift + Math.floor((i * pieces) / members.length)));
    shift += pieces - 1;
  });
  const used = [...new Set(ranks.values())].sort((a, b) => a - b);
  const dense = new Map(used.map((rank, i) => [rank, i]));
  for (const box of boxes) ranks.set(box, dense.get(ranks.get(box)));
}

// Sorts each layer by where its neighbours stand, to and fro, and keeps the order with the fewest
// crossings.
function orderLayers(layers) {
  const number = () =>
    layers.forEach((layer) =>
      layer.forEach((cell, position) => {
        cell.position = position;
      }),
    );
  const mean = (cells, otherwise) =>
    cells.length ? cells.reduce((sum, cell) => sum + cell.position, 0) / cells.length : otherwise;
  const cellCount = layers.reduce((sum, layer) => sum + layer.length, 0);
  const rounds = cellCount > 1500 ? 4 : 14;
  number();
  let best = null;
  for (let round = 0; round < rounds; ++round) {
    const forward = round % 2 === 0;
    for (const layer of forward ? layers : [...layers].reverse()) {
      for (const cell of layer) cell.weight = mean(forward ? cell.left : cell.right, cell.position);
      layer.sort((a, b) => a.weight - b.weight || a.position - b.position);
      layer.forEach((cell, position) => {
        cell.position = position;
      });
    }
    const crossings = countCrossings(layers);
    if (!best || crossings < best.crossings) best = {crossings, layers: layers.map((layer) => [...layer])};
    if (!best.crossings) break;
  }
  best.layers.forEach((layer, i) => {
    layers[i] = layer;
  });
  number();
}

function countCrossings(layers) {
  let crossings = 0;
  for (const layer of layers) {
    const ends = layer.flatMap((cell) => cell.right.map((next) => next.position).sort((a, b) => a - b));
    // Inversions, counted with a Fenwick tree.
    const tree = new Array(
      Math.max(
        0,
        largest(ends, (end) => end),
      ) + 2,
    ).fill(0);
    ends.forEach((end, seen) => {
      let notAfter = 0;
      for (let i = end + 1; i > 0; i -= i & -i) notAfter += tree[i];
      crossings += seen - notAfter;
      for (let i = end + 1; i < tree.length; i += i & -i) ++tree[i];
    });
  }
  return crossings;
}

// Moves every cell towards the middle of its neighbours as far as the order in its layer allows.
function placeVertically(layers) {
  for (const layer of layers) {
    let y = 0;
    for (const cell of layer) {
      cell.y = y;
      y += cell.height + spaceBelow(cell);
    }
  }
  const center = (cell) => cell.y + cell.height / 2;
  for (let round = 0; round < 12; ++round) {
    const forward = round % 2 === 0;
    for (const layer of forward ? layers : [...layers].reverse()) {
      const wishes = layer.map((cell) => {
        const near = round > 7 ? [...cell.left, ...cell.right] : forward ? cell.left : cell.right;
        return near.length
          ? near.reduce((sum, other) => sum + center(other), 0) / near.length - cell.height / 2
          : cell.y;
      });
      settle(layer, wishes);
    }
  }
}

function spaceBelow(cell) {
  return cell.box ? BOX_GAP : LINE_SPACE / 2;
}

// The places nearest to the wishes (least squares) that keep order and distances: neighbours that
// would overlap are moved as one block.
function settle(layer, wishes) {
  const blocks = [];
  let offset = 0;
  layer.forEach((cell, i) => {
    blocks.push({from: i, sum: wishes[i] - offset, count: 1});
    offset += cell.height + spaceBelow(cell);
    while (blocks.length > 1) {
      const [above, below] = blocks.slice(-2);
      if (above.sum / above.count <= below.sum / below.count) break;
      blocks.splice(-2, 2, {from: above.from, sum: above.sum + below.sum, count: above.count + below.count});
    }
  });
  offset = 0;
  let block = 0;
  layer.forEach((cell, i) => {
    if (block + 1 < blocks.length && blocks[block + 1].from === i) ++block;
    cell.y = blocks[block].sum / blocks[block].count + offset;
    offset += cell.height + spaceBelow(cell);
  });
}
