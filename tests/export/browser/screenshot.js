// Takes the picture of a page for the documents: node screenshot.js PAGE.html '#/address' FILE.png

import {resolve} from "node:path";
import {pathToFileURL} from "node:url";

import {launch} from "./browser.js";

const [, , file, address, picture] = process.argv;
const browser = await launch();
const page = await browser.newPage({viewport: {width: 1400, height: 1140}, colorScheme: "light"});
await page.goto(pathToFileURL(resolve(file)).href + address);
await page.waitForTimeout(500);
await page.screenshot({path: picture});
await browser.close();
