// Moving and zooming a picture by pointer, wheel, touch, buttons and keys.

// Lets the reader move and zoom `view` inside `picture`; returns the buttons.
function panAndZoom(picture, view, size) {
  let scale = 1,
    x = 0,
    y = 0,
    moved = false;
  const apply = () => view.setAttribute("transform", `translate(${x} ${y}) scale(${scale})`);
  const fit = () => {
    const {clientWidth: width, clientHeight: height} = picture;
    if (!width || !height) return;
    scale = Math.min(1.25, (width - 48) / size.width, (height - 48) / size.height);
    x = (width - size.width * scale) / 2;
    y = (height - size.height * scale) / 2;
    apply();
  };
  const zoom = (factor, px = picture.clientWidth / 2, py = picture.clientHeight / 2) => {
    const next = Math.max(0.02, Math.min(4, scale * factor));
    x = px - ((px - x) * next) / scale;
    y = py - ((py - y) * next) / scale;
    scale = next;
    moved = true;
    apply();
  };
  const pan = (dx, dy) => {
    x += dx;
    y += dy;
    moved = true;
    apply();
  };
  new ResizeObserver(() => {
    if (!moved) fit();
  }).observe(picture);

  picture.addEventListener(
    "wheel",
    (event) => {
      event.preventDefault();
      const box = picture.getBoundingClientRect();
      zoom(
        Math.exp(-event.deltaY * (event.deltaMode ? 0.05 : 0.0016)),
        event.clientX - box.left,
        event.clientY - box.top,
      );
    },
    {passive: false},
  );
  const pointers = new Map();
  let dragged = 0;
  picture.addEventListener("pointerdown", (event) => {
    if (event.button > 0) return;
    pointers.set(event.pointerId, event);
    dragged = 0;
  });
  picture.addEventListener("pointermove", (event) => {
    const before = pointers.get(event.pointerId);
    if (!before) return;
    pointers.set(event.pointerId, event);
    if (pointers.size === 1) {
      pan(event.clientX - before.clientX, event.clientY - before.clientY);
      dragged += Math.abs(event.clientX - before.clientX) + Math.abs(event.clientY - before.clientY);
      // Captured late, so that a plain click still reaches the box under it.
      if (dragged > 4 && !picture.hasPointerCapture(event.pointerId)) {
        picture.setPointerCapture(event.pointerId);
        picture.classList.add("dragging");
      }
    } else {
      const [other] = [...pointers.values()].filter((pointer) => pointer.pointerId !== event.pointerId);
      const distance = (pointer) =>
        Math.hypot(pointer.clientX - other.clientX, pointer.clientY - other.clientY) || 1;
      const box = picture.getBoundingClientRect();
      zoom(
        distance(event) / distance(before),
        (event.clientX + other.clientX) / 2 - box.left,
        (event.clientY + other.clientY) / 2 - box.top,
      );
      dragged = 99;
    }
  });
  const lift = (event) => {
    pointers.delete(event.pointerId);
    picture.classList.remove("dragging");
  };
  picture.addEventListener("pointerup", lift);
  picture.addEventListener("pointercancel", lift);
  picture.addEventListener("dragstart", (event) => event.preventDefault());
  picture.addEventListener(
    "click",
    (event) => {
      if (dragged > 4) event.preventDefault();
    },
    true,
  );
  picture.addEventListener("keydown", (event) => {
    const keys = {
      ArrowLeft: () => pan(60, 0),
      ArrowRight: () => pan(-60, 0),
      ArrowUp: () => pan(0, 60),
      ArrowDown: () => pan(0, -60),
      "+": () => zoom(1.25),
      "=": () => zoom(1.25),
      "-": () => zoom(0.8),
      0: () => {
        moved = false;
        fit();
      },
    };
    if (event.ctrlKey || event.metaKey || event.altKey || !keys[event.key]) return;
    event.preventDefault();
    keys[event.key]();
  });
  // A box reached with Tab is brought into sight.
  view.addEventListener("focusin", (event) => {
    const [node, frame] = [event.target.getBoundingClientRect(), picture.getBoundingClientRect()];
    if (!event.target.matches(":focus-visible")) return;
    if (
      node.left < frame.left ||
      node.right > frame.right ||
      node.top < frame.top ||
      node.bottom > frame.bottom
    ) {
      pan(
        frame.left + frame.width / 2 - (node.left + node.width / 2),
        frame.top + frame.height / 2 - (node.top + node.height / 2),
      );
    }
  });
  return h(
    "div",
    {class: "tools"},
    h(
      "button",
      {type: "button", "aria-label": "Zoom in", title: "Zoom in (+)", onclick: () => zoom(1.25)},
      "+",
    ),
    h(
      "button",
      {type: "button", "aria-label": "Zoom out", title: "Zoom out (-)", onclick: () => zoom(0.8)},
      "−",
    ),
    h(
      "button",
      {
        type: "button",
        title: "Fit the whole diagram (0)",
        onclick: () => {
          moved = false;
          fit();
        },
      },
      "Fit",
    ),
  );
}
