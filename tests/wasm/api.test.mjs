// The WebAssembly module's JavaScript API under node: the catalogue and
// name lookup, argument errors, memory across many calls, and (when
// QTZQ_CLI names the native tool) every effect's bytes against `qtzq apply`.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { test } from "node:test";
import { pathToFileURL } from "node:url";

import { decodePng, encodePng } from "./png.mjs";

const packageDir = process.env.QTZQ_WASM_PACKAGE;
const { load } = await import(pathToFileURL(join(packageDir, "index.js")).href);
const effects = await load();

// The test scene with an alpha ramp, so that alpha has to survive too.
function photo(width = 96, height = 64) {
  const image = effects.testScene(width, height);
  for (let i = 0; i < width * height; i++) image.data[i * 4 + 3] = (i * 7) % 256;
  return image;
}

test("the catalogue lists every effect once and names resolve as qtzq reads them", () => {
  const list = effects.catalogue();
  assert.equal(new Set(list.map((e) => e.id)).size, list.length);
  assert.ok(list.length >= 29);
  const film = list.find((e) => e.id === 1020);
  for (const name of [1020, "1020", "StyleFilm", "film", " FILM "]) assert.equal(effects.find(name), film);
  assert.equal(effects.find("old-photo").preset, "StyleOldPhoto");
  const tables = list.find((e) => e.overload.includes("tables"));
  assert.equal(tables.tables.length, 3);
  assert.equal(tables.materials.length, 2);
});

test("wrong arguments throw TypeError or RangeError naming the problem", () => {
  const image = photo(8, 4);
  const data = image.data;
  const cases = [
    ["nothing", image, {}, RangeError, /unknown effect 'nothing'/],
    [999, image, {}, RangeError, /unknown effect id 999/],
    [{}, image, {}, TypeError, /effect must be an id or a name/],
    ["film", [1, 2, 3, 4], {}, TypeError, /Uint8ClampedArray of RGBA/],
    ["film", new Float32Array(128), { width: 8, height: 4 }, TypeError, /not Float32Array/],
    ["film", data, {}, TypeError, /width and height/],
    ["film", data, { width: 8, height: 5 }, RangeError, /128 bytes is not 8x5/],
    ["film", { data, width: 0, height: 0 }, {}, RangeError, /is not 0x0/],
    ["film", data, { width: 8, height: 4, materials: [image] }, RangeError, /takes 0 material/],
    ["old photo", image, { materials: [photo(4, 4)] }, RangeError, /material 1 is 4x4, the photo 8x4/],
    ["old photo", image, { materials: image }, TypeError, /materials must be an array/],
    ["film", image, { tables: new Uint8Array(196618) }, RangeError, /takes no blend table set/],
    [1031, image, { tables: new Uint8Array(100) }, RangeError, /100 bytes; a blend table set has 196618/],
    [1031, image, { tables: "x" }, TypeError, /tables must be a Uint8Array/],
    ["blur", image, { radius: -1 }, RangeError, /radius -1 is outside 0 to 255/],
    ["blur", image, { radius: "2" }, TypeError, /radius must be a number/],
  ];
  const call = (effect, input, options) =>
    effect === "blur" ? effects.gaussianBlur(input, options.radius) : effects.apply(effect, input, options);
  for (const [effect, input, options, type, message] of cases)
    assert.throws(() => call(effect, input, options), (e) => e instanceof type && message.test(e.message),
      `${JSON.stringify(effect)} with ${JSON.stringify(options)}`);
});

test("results come back in the caller's form and leave the input alone", () => {
  const image = photo(16, 8);
  const copy = image.data.slice();
  const fromImage = effects.apply("film", image);
  const fromArray = effects.apply("film", image.data, { width: 16, height: 8 });
  assert.deepEqual(image.data, copy);
  assert.ok(fromArray instanceof Uint8ClampedArray);
  assert.deepEqual(fromImage.data, fromArray);
  assert.notDeepEqual(fromArray, copy);
  for (let i = 3; i < copy.length; i += 4) assert.equal(fromArray[i], copy[i], "film keeps alpha");
  const inPlace = { data: image.data.slice(), width: 16, height: 8 };
  assert.equal(effects.apply("film", inPlace, { inPlace: true }), inPlace);
  assert.deepEqual(inPlace.data, fromArray);
  const blurred = effects.gaussianBlur(image, 3).data;
  assert.deepEqual(image.data, copy);
  assert.notDeepEqual(blurred, copy);
  for (let i = 3; i < copy.length; i += 4) assert.equal(blurred[i], copy[i], "the blur keeps alpha");
  const hdr = effects.apply(1033, image).data;
  for (let i = 3; i < hdr.length; i += 4) assert.equal(hdr[i], 255, "the HDR looks make pixels opaque");
});

test("many calls, failed ones too, leave the module's heap as it was", () => {
  const image = photo(64, 48);
  const run = () => {
    for (const id of [1020, 1026, 1031, 1048]) effects.apply(id, image);
    effects.gaussianBlur(image, 20);
    effects.apply(1026, image, { materials: [photo(64, 48)] });
    assert.throws(() => effects.apply(1026, image, { materials: [photo(8, 8)] }), RangeError);
    assert.throws(() => effects.apply("no such look", image), RangeError);
  };
  run();
  const before = effects.heapInUse();
  for (let i = 0; i < 50; i++) run();
  assert.equal(effects.heapInUse(), before);
});

// Effects reseeding rand() from the clock differ from run to run and between
// C libraries; everything else must match the native tool to the byte.
const CLOCK_SEEDED = [1021, 1039];

test("every effect gives the native qtzq tool's bytes", { skip: !process.env.QTZQ_CLI && "QTZQ_CLI not set" }, () => {
  const dir = join(process.env.QTZQ_WASM_OUT, "api");
  mkdirSync(dir, { recursive: true });
  const image = photo(), input = join(dir, "photo.png");
  writeFileSync(input, encodePng(image));
  const native = (effect, extra = []) => {
    const output = join(dir, `${effect}.png`);
    execFileSync(process.env.QTZQ_CLI, ["apply", String(effect), input, "-o", output, "-q", ...extra]);
    return decodePng(readFileSync(output)).data;
  };
  for (const info of effects.catalogue()) {
    if (CLOCK_SEEDED.includes(info.id)) continue;
    assert.deepEqual(effects.apply(info.id, image).data, native(info.id), `${info.id} ${info.preset}`);
  }
  // Given inputs instead of the generated ones.
  const material = effects.apply("film", photo()), materialFile = join(dir, "material.png");
  writeFileSync(materialFile, encodePng(material));
  const tables = Uint8Array.from({ length: 196618 }, (_, i) => (i * 37) >> 3), tablesFile = join(dir, "tables.bin");
  writeFileSync(tablesFile, tables);
  assert.deepEqual(effects.apply(1026, image, { materials: [material] }).data, native(1026, ["-m", materialFile]));
  assert.deepEqual(effects.apply(1031, image, { materials: [material], tables }).data,
    native(1031, ["-m", materialFile, "--tables", tablesFile]));
});
