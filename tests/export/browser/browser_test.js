// Opens pages of the html format in Chromium and uses them as a reader would: by search, by links and
// by keyboard, with names made to break them, and with 5,000 tables.
// WBIMPORT names the program that renders.

import assert from "node:assert/strict";
import {execFileSync} from "node:child_process";
import {existsSync, mkdtempSync, readFileSync, rmSync, writeFileSync} from "node:fs";
import {tmpdir} from "node:os";
import {join} from "node:path";
import test, {after, before} from "node:test";
import {fileURLToPath, pathToFileURL} from "node:url";

import {launch} from "./browser.js";
import {HOSTILE, hostileSchema, largeSchema} from "./schemas.js";

let browser, folder;
before(async () => {
  folder = mkdtempSync(join(tmpdir(), "html-page-"));
  browser = await launch();
});
after(async () => {
  await browser?.close();
  rmSync(folder, {recursive: true, force: true});
});

const rendered = new Map();
function render(name, schema, ...options) {
  const key = [name, ...options].join(" ");
  if (!rendered.has(key)) {
    const [file, page] = [join(folder, `${rendered.size}.json`), join(folder, `${rendered.size}.html`)];
    writeFileSync(file, JSON.stringify(schema()));
    execFileSync(process.env.WBIMPORT, ["render", file, "--format", "html", "-o", page, ...options], {
      stdio: ["ignore", "inherit", "pipe"],
    });
    rendered.set(key, pathToFileURL(page).href);
  }
  return rendered.get(key);
}
const hostile = () => render("hostile", hostileSchema);
const medium = (...options) => render("medium", () => largeSchema(200), ...options);
const large = () => render("large", () => largeSchema(5000));

// Runs `use` on a page; fails on any error of the page and on any request but the file itself.
async function withPage(address, use, context = {}) {
  const page = await browser.newPage({viewport: {width: 1300, height: 850}, ...context});
  const faults = [];
  page.on("console", (message) => {
    if (["error", "warning"].includes(message.type())) faults.push(message.text());
  });
  page.on("pageerror", (error) => faults.push(String(error)));
  page.on("dialog", (dialog) => faults.push(`dialog ${dialog.message()}`));
  page.on("request", (request) => {
    if (!/^(file|data):/.test(request.url())) faults.push(`request ${request.url()}`);
  });
  try {
    await page.goto(address);
    await page.waitForSelector("h1");
    await use(page);
    assert.deepEqual(faults, []);
  } finally {
    await page.close();
  }
}
const heading = (page) => page.textContent("h1");
const opened = (page, text) =>
  page.waitForFunction((wanted) => document.querySelector("h1")?.textContent === wanted, text);
const displayed = (name) => name.replace("\n", "␊");

test("hostile names are shown as they are, everywhere", async () => {
  await withPage(hostile(), async (page) => {
    const hrefs = await page.evaluate(() =>
      [...document.querySelectorAll(".node")].map((node) => node.getAttribute("href")),
    );
    assert.equal(hrefs.length, HOSTILE.length);
    for (const [i, name] of HOSTILE.entries()) {
      await page.evaluate((href) => {
        location.hash = href;
      }, hrefs[i]);
      await opened(page, displayed(name));
      assert.deepEqual(await page.locator("td.name .column-name").nth(0).textContent(), displayed(name));
    }
    for (const path of ["functions", "procedures", "operators", "types", "diagram", ""]) {
      await page.evaluate((to) => {
        location.hash = `#/${to}`;
      }, path);
      await page.waitForTimeout(50);
    }
    assert.equal(await page.locator("img, main script").count(), 0);
    assert.ok(!(await page.title()).startsWith("broken"));
  });
});

test("a stopped import is labelled on every page", async () => {
  await withPage(hostile(), async (page) => {
    for (const path of ["#/", "#/functions", "#/diagram", "#/table/nowhere"]) {
      await page.evaluate((to) => {
        location.hash = to;
      }, path);
      await page.waitForTimeout(50);
      assert.match(await page.textContent("#import-notice"), /Incomplete: the import was stopped/);
    }
  });
});

test("functions show their overloads", async () => {
  await withPage(`${hostile()}#/functions`, async (page) => {
    await page.fill('[aria-label="Filter functions"]', "quoted");
    assert.equal(await page.locator("details").count(), 1);
    assert.equal(
      await page.locator("details[open] .overloads li").textContent(),
      'it\'s "quoted"(a) → it\'s "quoted"',
    );
  });
});

test("search, arrows and Enter lead to a table, a click on a reference to the next", async () => {
  await withPage(large(), async (page) => {
    await page.keyboard.press("/");
    assert.equal(await page.evaluate(() => document.activeElement.id), "search");
    await page.keyboard.type("table_4711");
    assert.match(await page.textContent(".row.active"), /table_4711/);
    assert.equal(await page.textContent(".row.active mark"), "table_4711");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowUp");
    await page.keyboard.press("ArrowUp");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("Enter");
    await opened(page, "table_4711");
    assert.equal(await page.evaluate(() => document.activeElement.tagName), "H1", "focus follows");
    await page.click('main td.wide a:text-is("stock.table_1570.id")');
    await opened(page, "table_1570");
    await page.goBack();
    await opened(page, "table_4711");
    await page.keyboard.press("/");
    await page.keyboard.press("Escape");
    assert.equal(await page.inputValue("#search"), "", "Escape clears");
    await page.keyboard.press("Escape");
    assert.equal(await page.evaluate(() => document.activeElement.id), "main", "and then leaves");
  });
});

test("a column is found with its table and marked on the page", async () => {
  await withPage(large(), async (page) => {
    await page.fill("#search", "stock.table_12 value_7");
    await page.locator(".row:not(.heading)").first().click();
    await opened(page, "table_12");
    assert.equal(await page.locator("tr.target .column-name").textContent(), "value_7");
  });
});

test("the neighbourhood grows with the distance", async () => {
  // table_i refers to table_(i/3) and to table_(i%20).
  const near = (center, distance) => {
    const found = new Set([center]);
    for (let step = 0; step < distance; ++step) {
      for (const one of [...found]) {
        for (let i = 1; i < 200; ++i) {
          for (const to of [Math.floor(i / 3), i % 20]) {
            if (i === one) found.add(to);
            if (to === one) found.add(i);
          }
        }
      }
    }
    return found.size;
  };
  await withPage(`${medium()}#/table/sales/table_199`, async (page) => {
    for (const distance of [1, 2, 3]) {
      await page.click(`[data-distance="${distance}"]`);
      const tables = near(199, distance);
      assert.match(await page.textContent(".neighbourhood [role=status]"), new RegExp(`\\b${tables} tables`));
      assert.equal(await page.locator(".node").count(), Math.min(tables, 60));
    }
    await page.focus('[data-distance="3"]');
    await page.keyboard.press("ArrowRight");
    assert.equal(await page.getAttribute('[data-distance="1"]', "aria-checked"), "true");
    await page.locator(".node").last().focus();
    const name = await page.locator(".node").last().locator(".title-text").textContent();
    await page.keyboard.press("Enter");
    await opened(page, name);
  });
});

test("the diagram zooms by wheel and keys and is moved by dragging", async () => {
  await withPage(`${render("small", () => largeSchema(40))}#/diagram`, async (page) => {
    assert.equal(await page.locator(".node").count(), 40, "a small schema is drawn whole");
    const transform = () => page.getAttribute(".diagram svg > g", "transform");
    const changed = async (act) => {
      const earlier = await transform();
      await act();
      await page.waitForTimeout(30);
      assert.notEqual(await transform(), earlier);
    };
    await page.waitForTimeout(100);
    const fitted = await transform();
    const box = await page.locator(".diagram").boundingBox();
    await page.mouse.move(box.x + 8, box.y + 8);
    await changed(() => page.mouse.wheel(0, -300));
    await changed(async () => {
      await page.mouse.down();
      await page.mouse.move(box.x + 80, box.y + 60, {steps: 4});
      await page.mouse.up();
    });
    await page.focus(".diagram svg");
    for (const key of ["+", "-", "ArrowLeft", "ArrowDown"]) await changed(() => page.keyboard.press(key));
    await page.keyboard.press("0");
    assert.equal(await transform(), fitted);
  });
});

test("a large schema is not drawn whole unless asked", async () => {
  await withPage(`${large()}#/diagram`, async (page) => {
    assert.equal(await page.locator(".node").count(), 0);
    assert.match(await page.textContent("main"), /5,000 tables.*--whole/s);
    await page.locator(".chips a").first().click();
    await page.waitForSelector(".node.focus");
  });
  await withPage(medium("--around", "sales.table_199", "--distance", "2"), async (page) => {
    assert.equal(await heading(page), "sales.table_199");
    assert.equal(await page.getAttribute('[data-distance="2"]', "aria-checked"), "true");
  });
});

test("5,000 tables open in under two seconds with a list of rows in sight only", async () => {
  const times = [];
  for (let run = 0; run < 3; ++run) {
    await withPage(large(), async (page) => {
      const seen = await page.evaluate(
        () =>
          new Promise((resolve) => {
            requestAnimationFrame(() =>
              setTimeout(() =>
                resolve({time: performance.now(), rows: document.querySelectorAll(".row").length}),
              ),
            );
          }),
      );
      times.push(Math.round(seen.time));
      assert.ok(seen.rows > 10 && seen.rows < 100, `${seen.rows} rows`);
    });
  }
  console.log(`5,000 tables opened in ${times.join(", ")} ms`);
  assert.ok(Math.min(...times) < 2000, `${times} ms`);
});

// Everything that an exact reading knows, of the golden workbook.
const GOLDEN = new URL("../golden/every_detail.json", import.meta.url);
const detail = () => render("detail", () => JSON.parse(readFileSync(GOLDEN)));
const goTo = async (page, address) => {
  await page.evaluate((to) => {
    location.hash = to;
  }, address);
  await page.waitForTimeout(50);
};

test("what was read of a table stands on its page, found by name", async () => {
  await withPage(`${detail()}#/table/customer`, async (page) => {
    await opened(page, "customer"); // no owner in the address: there is one such table
    const text = await page.textContent("main");
    for (const shown of [
      'Who buys | "things" <here>',
      "As printed on letters;\nnever empty",
      "identity by default",
      "stored upper((name)::text)",
      "now()",
      "collation de_DE",
      "btree (lower((name)::text), since desc [nulls last]) including (id) where (mood IS NOT NULL)",
      "customer_name_check",
      "before insert, update of name",
      "on delete cascade, deferrable, initially deferred",
    ])
      assert.ok(text.includes(shown), shown);
    await goTo(page, "#/table/sales/order");
    assert.match(await page.textContent("#partitions"), /order_eu.*FOR VALUES IN \('eu', 'uk'\)/);
    assert.match(await page.textContent("main"), /stock\.warehouse \(id\)/, "a key to a table that is not here");
    await goTo(page, "#/table/sales/order?column=customer_id");
    assert.equal(await page.locator("tr.target .column-name").textContent(), "customer_id");
    await goTo(page, "#/table/sales/best%20customer");
    assert.equal(await page.locator("pre.sql .sql-word").first().textContent(), "SELECT");
    for (const [address, shown] of [
      ["#/routines", "(day date = CURRENT_DATE, inout sales.percent)"],
      ["#/sequences", "increment -1"],
      ["#/types", "'it''s \"so-so\"'"],
      ["#/", "permission denied for table pg_trigger"],
    ]) {
      await goTo(page, address);
      assert.ok((await page.textContent("main")).includes(shown), address);
    }
  });
});

test("the search finds owner.table, table.column and comments", async () => {
  await withPage(detail(), async (page) => {
    for (const [typed, found] of [
      ["sales.order", "order"],
      ["customer.mood", "mood"],
      ["sales.customer.mood", "mood"],
      ["letters", "name"],
      ["who spend", "best customer"],
      ["counts down", "sales.free_seq"],
      ["order_eu", "order_eu"],
    ]) {
      await page.fill("#search", typed);
      assert.equal(await page.locator(".row:not(.heading) .name").first().textContent(), found, typed);
    }
    await page.fill("#search", "");
    const listed = await page.locator(".row:not(.heading) .name").allTextContents();
    assert.ok(listed.includes("order") && !listed.includes("order_eu"), "partitions are folded");
  });
});

test("nothing is cut at 400, 900 and 1,600 pixels, and the keyboard is enough", async () => {
  for (const width of [400, 900, 1600]) {
    await withPage(
      `${detail()}#/table/sales/customer`,
      async (page) => {
        const cut = await page.evaluate(() =>
          [...document.querySelectorAll("body, header, header *, #side, .find *, main")]
            .filter((e) => !e.closest("svg") && getComputedStyle(e).display !== "inline")
            .filter((e) => e.scrollWidth > e.clientWidth + 1 || e.getBoundingClientRect().right > innerWidth + 1)
            .map((e) => e.outerHTML.slice(0, 80)),
        );
        assert.deepEqual(cut, [], `${width} pixels`);
        const room = await page.evaluate(() => document.getElementById("main").clientHeight / innerHeight);
        assert.ok(room > 0.7, `the content has ${room} of the height`);
        await page.keyboard.press("/");
        await page.keyboard.type("order.order_no");
        assert.ok(await page.locator(".row.active").isVisible());
        await page.keyboard.press("Enter");
        await opened(page, "order");
        assert.equal(await page.locator("tr.target .column-name").textContent(), "order_no");
        if (width === 400) assert.ok(!(await page.locator(".rows").isVisible()), "the list closes");
      },
      {viewport: {width, height: 800}},
    );
  }
});

// What other programs read, in those programs.
async function installed(name) {
  try {
    return await import(name);
  } catch {
    return null;
  }
}
function renderText(schema, format) {
  const [file, text] = [join(folder, `${format}.json`), join(folder, `text.${format}`)];
  writeFileSync(file, JSON.stringify(schema));
  execFileSync(process.env.WBIMPORT, ["render", file, "--format", format, "-o", text], {stdio: "ignore"});
  return readFileSync(text, "utf8");
}
const SCHEMAS = [hostileSchema(), largeSchema(200), JSON.parse(readFileSync(GOLDEN))];

test("Mermaid draws its diagrams", async (context) => {
  const script = fileURLToPath(new URL("node_modules/mermaid/dist/mermaid.min.js", import.meta.url));
  if (!existsSync(script)) return context.skip("mermaid is not installed");
  const page = await browser.newPage();
  await page.addScriptTag({path: script});
  for (const schema of SCHEMAS) {
    const text = renderText(schema, "mermaid");
    const drawn = await page.evaluate(async (diagram) => {
      mermaid.initialize({startOnLoad: false});
      document.body.innerHTML = (await mermaid.render("drawn", diagram)).svg;
      return document.body.textContent;
    }, text);
    for (const {owner, name} of schema.tables.slice(0, 12)) {
      if (!text.includes(`${name}"]`)) continue; // not among those drawn, or spelled otherwise
      assert.ok(drawn.includes(`${owner}.${displayed(name)}`), name);
    }
    assert.doesNotMatch(drawn, /Syntax error|Maximum text size/);
  }
  await page.close();
});

test("DBML is read by its own parser", async (context) => {
  const dbml = await installed("@dbml/core");
  if (!dbml) return context.skip("@dbml/core is not installed");
  for (const schema of SCHEMAS) {
    const {schemas} = new dbml.Parser().parse(renderText(schema, "dbml"), "dbmlv2");
    const names = schemas.flatMap(({tables}) => tables.map(({name}) => name));
    const wanted = schema.tables.filter(({partitionOf}) => !partitionOf).map(({name}) => displayed(name));
    assert.deepEqual(names.sort(), wanted.sort());
  }
});

test("light and dark differ, and the focus is visible", async () => {
  const colours = [];
  for (const colorScheme of ["light", "dark"]) {
    await withPage(
      hostile(),
      async (page) => {
        colours.push(await page.evaluate(() => getComputedStyle(document.body).backgroundColor));
        await page.keyboard.press("Tab");
        await page.keyboard.press("Tab");
        assert.notEqual(
          await page.evaluate(() => getComputedStyle(document.activeElement).outlineStyle),
          "none",
        );
      },
      {colorScheme},
    );
  }
  assert.notEqual(colours[0], colours[1]);
});
