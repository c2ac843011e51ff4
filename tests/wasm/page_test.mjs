// The photo page in headless Chromium, driven like a person would: it opens
// the page from a local static server, loads a photo through the file
// input, picks looks from the list and compares the result canvas with
// `qtzq apply` on the same photo, byte for byte; then takes a screenshot
// and checks the downloaded PNG too.
// Chromium is driven through the DevTools protocol over a pipe.
//
// Environment (set by CTest): QTZQ_WASM_DEMO (the built page), QTZQ_CLI,
// QTZQ_PHOTOS, QTZQ_WASM_OUT. Exit status 77 (skipped) without Chromium or
// the native tool.
import { execFileSync, spawn } from "node:child_process";
import { existsSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createServer } from "node:http";
import { tmpdir } from "node:os";
import { basename, extname, join, normalize } from "node:path";
import { pathToFileURL } from "node:url";

import { decodePng, encodePng } from "./png.mjs";

// Plain looks, materials, blend tables, three materials, the HDR sharpening
// and the zoom blur.
const LOOKS = [1020, 1026, 1031, 1033, 1048, 1104];
const CHROMIUM = ["/usr/bin/chromium", "/usr/bin/chromium-browser"].find(existsSync);
const { QTZQ_WASM_DEMO: demoDir, QTZQ_CLI: cli, QTZQ_PHOTOS: photos, QTZQ_WASM_OUT: outRoot } = process.env;

if (!CHROMIUM || !cli) {
  console.log(`skipped: ${CHROMIUM ? "QTZQ_CLI not set" : "no chromium"}`);
  process.exit(77);
}
const out = join(outRoot, "page");
mkdirSync(out, { recursive: true });

// The photo: a real one when ../shared is there, else the test scene.
async function choosePhoto() {
  const real = join(photos ?? "", "chelsea.png");
  if (photos && existsSync(real)) return real;
  const { load } = await import(pathToFileURL(join(demoDir, "qtzqeffect", "index.js")).href);
  const file = join(out, "scene.png");
  writeFileSync(file, encodePng((await load()).testScene(480, 320)));
  return file;
}

const TYPES = { ".html": "text/html", ".js": "text/javascript", ".css": "text/css", ".wasm": "application/wasm", ".png": "image/png" };

// Serves /demo/ from the built page and /expected/ from the tool's results.
function serve() {
  const roots = { demo: demoDir, expected: out };
  const server = createServer((request, response) => {
    const [, root, ...rest] = decodeURIComponent(new URL(request.url, "http://x").pathname).split("/");
    const file = roots[root] && join(roots[root], normalize(rest.join("/") || "index.html"));
    if (!file || !file.startsWith(roots[root]) || !existsSync(file)) {
      response.writeHead(404).end();
      return;
    }
    response.writeHead(200, { "content-type": TYPES[extname(file)] ?? "application/octet-stream" });
    response.end(readFileSync(file));
  });
  return new Promise((resolve) => server.listen(0, "127.0.0.1", () => resolve(server)));
}

// A DevTools protocol session over --remote-debugging-pipe (fd 3 in, fd 4 out,
// messages ended by NUL).
function startChromium(profile) {
  const browser = spawn(CHROMIUM, ["--headless=new", "--no-sandbox", "--disable-gpu", "--no-first-run",
    "--force-color-profile=srgb", "--remote-debugging-pipe", `--user-data-dir=${profile}`, "about:blank"],
  { stdio: ["ignore", "ignore", "ignore", "pipe", "pipe"] });
  const pending = new Map();
  let next = 1, buffered = "";
  browser.stdio[4].on("data", (chunk) => {
    buffered += chunk.toString();
    let end;
    while ((end = buffered.indexOf("\0")) >= 0) {
      const message = JSON.parse(buffered.slice(0, end));
      buffered = buffered.slice(end + 1);
      const waiter = pending.get(message.id);
      if (!waiter) continue;
      pending.delete(message.id);
      message.error ? waiter.reject(new Error(`${waiter.method}: ${message.error.message}`)) : waiter.resolve(message.result);
    }
  });
  const send = (method, params = {}, sessionId) => new Promise((resolve, reject) => {
    const id = next++;
    pending.set(id, { resolve, reject, method });
    browser.stdio[3].write(JSON.stringify({ id, method, params, sessionId }) + "\0");
  });
  return { browser, send };
}

// The page's download of the look on show (old photo), read back as PNG:
// the tool's bytes again.
async function downloadMatches(send, evaluate, photo) {
  const downloads = join(out, "downloads");
  rmSync(downloads, { recursive: true, force: true });
  await send("Browser.setDownloadBehavior", { behavior: "allow", downloadPath: downloads });
  await evaluate(`document.getElementById("download").click()`);
  const file = join(downloads, `${basename(photo, ".png")}-old-photo.png`);
  for (let tries = 0; tries < 100 && !existsSync(file); tries++) await new Promise((resolve) => setTimeout(resolve, 100));
  const same = existsSync(file) &&
    Buffer.from(decodePng(readFileSync(file)).data).equals(Buffer.from(decodePng(readFileSync(join(out, "1026.png"))).data));
  console.log(`${same ? "ok" : "FAIL"} download ${file}`);
  return same;
}

async function main() {
  const photo = await choosePhoto();
  for (const id of LOOKS) execFileSync(cli, ["apply", String(id), photo, "-o", join(out, `${id}.png`), "-q"]);
  const server = await serve();
  const profile = mkdtempSync(join(tmpdir(), "qtzq-chromium-"));
  const { browser, send } = startChromium(profile);
  let failed = 0;
  try {
    const { targetId } = await send("Target.createTarget", { url: "about:blank" });
    const { sessionId } = await send("Target.attachToTarget", { targetId, flatten: true });
    const page = (method, params) => send(method, params, sessionId);
    const evaluate = async (expression) => {
      const { result, exceptionDetails } = await page("Runtime.evaluate", { expression, awaitPromise: true, returnByValue: true });
      if (exceptionDetails) throw new Error(`${expression}: ${exceptionDetails.exception?.description ?? exceptionDetails.text}`);
      return result.value;
    };
    // Runs a step of the page and waits until it has rendered (or failed).
    const step = async (action) => {
      await evaluate(`document.body.dataset.state = "waiting"`);
      await action();
      for (let tries = 0; tries < 600; tries++) {
        // (While a new document loads there may be no body, or no context.)
        const state = await evaluate("document.body?.dataset.state").catch(() => undefined);
        if (state === "ready") return;
        if (state === "error") throw new Error(await evaluate(`document.getElementById("status").textContent`));
        await new Promise((resolve) => setTimeout(resolve, 100));
      }
      throw new Error("the page did not finish");
    };
    await page("Emulation.setDeviceMetricsOverride", { width: 1000, height: 760, deviceScaleFactor: 1, mobile: false });
    const url = `http://127.0.0.1:${server.address().port}/demo/`;
    await page("Page.enable");
    await step(() => page("Page.navigate", { url }));
    const { root } = await page("DOM.getDocument");
    const { nodeId } = await page("DOM.querySelector", { nodeId: root.nodeId, selector: "#photo" });
    await step(() => page("DOM.setFileInputFiles", { nodeId, files: [photo] }));
    for (const id of LOOKS) {
      await step(() => evaluate(`{ const look = document.getElementById("look"); look.value = "${id}"; look.dispatchEvent(new Event("change")); }`));
      const diff = await evaluate(`(async () => {
        const canvas = document.getElementById("after");
        const shown = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height).data;
        const blob = await (await fetch("/expected/${id}.png")).blob();
        const bitmap = await createImageBitmap(blob, { colorSpaceConversion: "none", premultiplyAlpha: "none" });
        const context = new OffscreenCanvas(bitmap.width, bitmap.height).getContext("2d");
        context.drawImage(bitmap, 0, 0);
        const expected = context.getImageData(0, 0, bitmap.width, bitmap.height).data;
        if (expected.length !== shown.length) return "size " + canvas.width + "x" + canvas.height + " vs " + bitmap.width + "x" + bitmap.height;
        let differing = 0;
        for (let i = 0; i < shown.length; i++) differing += shown[i] !== expected[i];
        return differing ? differing + " bytes differ" : "";
      })()`);
      console.log(`${diff ? "FAIL" : "ok"} ${id}${diff ? ": " + diff : ""}`);
      failed += diff ? 1 : 0;
    }
    await step(() => evaluate(`{ const look = document.getElementById("look"); look.value = "1026"; look.dispatchEvent(new Event("change")); }`));
    const { data } = await page("Page.captureScreenshot", { format: "png" });
    writeFileSync(join(out, "screenshot.png"), Buffer.from(data, "base64"));
    console.log(`screenshot: ${join(out, "screenshot.png")}`);
    failed += await downloadMatches(send, evaluate, photo) ? 0 : 1;
  } finally {
    // The profile is removed once Chromium has stopped writing to it.
    await new Promise((resolve) => {
      browser.once("exit", resolve);
      browser.kill();
    });
    server.close();
    // Chromium's helper processes may still flush their cache for a moment
    // after the browser has gone; a profile left in the temporary folder is
    // not a failure of the page.
    try {
      rmSync(profile, { recursive: true, force: true, maxRetries: 10, retryDelay: 200 });
    } catch (error) {
      console.warn(`left ${profile}: ${error.code}`);
    }
  }
  console.log(`${LOOKS.length + 1 - failed} passed, ${failed} failed`);
  process.exit(failed ? 1 : 0);
}

main().catch((error) => {
  console.error(error);
  process.exit(1);
});
