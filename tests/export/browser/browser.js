// The browser that the test and the screenshot share: Debian's Chromium, without network habits.

import {chromium} from "playwright-core";

export const CHROMIUM = process.env.CHROMIUM ?? "/usr/bin/chromium";

export function launch() {
  return chromium.launch({
    executablePath: CHROMIUM,
    args: [
      "--no-sandbox",
      "--disable-gpu",
      "--disable-quic",
      "--no-first-run",
      "--disable-background-networking",
      "--disable-component-update",
      "--disable-sync",
    ],
  });
}
