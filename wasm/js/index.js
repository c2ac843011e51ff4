// qtzqeffect for the web: the library's looks on RGBA pixels (ImageData or
// Uint8ClampedArray), computed by the WebAssembly build of the library with
// the same bytes as the native one.
//
//   import { load } from "qtzqeffect";
//   const effects = await load();
//   const film = effects.apply("film", ctx.getImageData(0, 0, w, h));
import createQtzqCore from "./qtzqeffect-core.js";

const TABLE_SET_BYTES = 196618;

const isNode = typeof process === "object" && typeof process.versions?.node === "string";

// Loads and instantiates the module once; every call of the returned object
// uses it. In node the .wasm file is read from beside this file.
export async function load(options = {}) {
  const wasmUrl = new URL("./qtzqeffect-core.wasm", import.meta.url);
  let wasmBinary = options.wasmBinary;
  if (!wasmBinary && isNode) {
    const { readFile } = await import("node:fs/promises");
    wasmBinary = await readFile(wasmUrl);
  }
  const core = await createQtzqCore({ wasmBinary, locateFile: () => wasmUrl.href });
  return new Effects(core);
}

class Effects {
  #core;
  #catalogue;

  constructor(core) {
    this.#core = core;
    const entries = JSON.parse(core.UTF8ToString(core._qtzq_catalogue_json()));
    this.#catalogue = entries.map((entry) => deepFreeze(entry));
  }

  // Every effect: id, preset, look, overload, materials (one per slot, with
  // the generated default's kind and base), tables (default blend modes of
  // a blend-table effect), serialised.
  catalogue() {
    return [...this.#catalogue];
  }

  // The catalogue entry an id or name stands for (as `qtzq apply` reads it).
  find(effect) {
    const id = this.#effectId(effect);
    return this.#catalogue.find((entry) => entry.id === id);
  }

  // Applies one effect to a copy of `image` and returns it in the same form
  // (ImageData, or a Uint8ClampedArray for a bare array with
  // options.width/height); with options.inPlace the caller's pixels are
  // changed and `image` is returned (no new buffer: faster on large photos). Materials (options.materials, RGBA images of the
  // photo's size, null for a default) and the blend table set
  // (options.tables) are generated as the command-line tool does when not
  // given. Alpha is kept (the HDR looks make every pixel opaque).
  apply(effect, image, options = {}) {
    const info = this.find(effect);
    const { data, width, height } = pixelsOf(image, options, "image");
    checkSize(this.#core, width, height, "image");
    const slots = info.materials.length;
    const materials = options.materials ?? [];
    if (!Array.isArray(materials)) throw new TypeError("options.materials must be an array");
    if (materials.length > slots)
      throw new RangeError(`${info.id} ${info.preset} takes ${slots} material(s), ${materials.length} given`);
    const tables = tablesOf(options.tables, info);
    return this.#onHeap((copyIn) => {
      const photo = copyIn(data);
      const slotTable = copyIn(new Uint8Array(12));
      materials.forEach((material, slot) => {
        if (material == null) return;
        const pixels = pixelsOf(material, { width, height }, `material ${slot + 1}`);
        if (pixels.width !== width || pixels.height !== height)
          throw new RangeError(`material ${slot + 1} is ${pixels.width}x${pixels.height}, the photo ${width}x${height}`);
        const address = copyIn(pixels.data);  // first: a growing heap replaces the views
        this.#core.HEAPU32[(slotTable >> 2) + slot] = address;
      });
      this.#core._qtzq_apply_rgba(info.id, photo, width, height, slotTable, tables ? copyIn(tables) : 0);
      return this.#result(image, data, photo, options.inPlace);
    });
  }

  // The library's recursive Gaussian blur (radius in pixels, 0 to 255) of
  // a copy of `image` (options.inPlace as for apply); alpha is kept.
  gaussianBlur(image, radius, options = {}) {
    if (typeof radius !== "number") throw new TypeError(`radius must be a number, not ${typeName(radius)}`);
    if (!(radius >= 0 && radius <= 255)) throw new RangeError(`radius ${radius} is outside 0 to 255`);
    const { data, width, height } = pixelsOf(image, options, "image");
    checkSize(this.#core, width, height, "image");
    return this.#onHeap((copyIn) => {
      const pointer = copyIn(data);
      this.#core._qtzq_gaussian_blur_rgba(pointer, width, height, radius);
      return this.#result(image, data, pointer, options.inPlace);
    });
  }

  // The library's built-in test scene (sky, skin tones, colour patches,
  // fine detail, a grey ramp) as ImageData.
  testScene(width = 480, height = 320) {
    checkSize(this.#core, width, height, "scene");
    const pointer = this.#core._qtzq_test_scene(width, height);
    try {
      return makeImage(this.#copyOut(pointer, width * height * 4), width, height);
    } finally {
      this.#core._free(pointer);
    }
  }

  // Bytes of the module's heap in use (what a leak would grow).
  heapInUse() {
    return this.#core._qtzq_heap_in_use();
  }

  // Runs work(copyIn), where copyIn(bytes) copies bytes onto the module's
  // heap and returns their address; all of them are freed afterwards, also
  // when work throws.
  #onHeap(work) {
    const core = this.#core, buffers = [];
    const copyIn = (bytes) => {
      const pointer = core._malloc(bytes.length);
      if (!pointer) throw new RangeError(`no memory for ${bytes.length} bytes`);
      buffers.push(pointer);
      core.HEAPU8.set(bytes, pointer);
      return pointer;
    };
    try {
      return work(copyIn);
    } finally {
      buffers.forEach((pointer) => core._free(pointer));
    }
  }

  // A copy of heap bytes (the heap's view changes when memory grows).
  #copyOut(pointer, length) {
    return new Uint8ClampedArray(this.#core.HEAPU8.subarray(pointer, pointer + length));
  }

  // The result at `pointer`: written over the caller's pixels (inPlace, the
  // caller's image returned) or as a new image of the caller's form.
  #result(image, data, pointer, inPlace) {
    const bytes = this.#core.HEAPU8.subarray(pointer, pointer + data.length);
    if (inPlace) {
      data.set(bytes);
      return image;
    }
    const copy = new Uint8ClampedArray(bytes);
    return isImageLike(image) ? makeImage(copy, image.width, image.height) : copy;
  }

  #effectId(effect) {
    if (typeof effect === "number") {
      if (this.#catalogue.some((entry) => entry.id === effect)) return effect;
      throw new RangeError(`unknown effect id ${effect} (see catalogue())`);
    }
    if (typeof effect !== "string") throw new TypeError(`effect must be an id or a name, not ${typeName(effect)}`);
    const core = this.#core;
    const size = new TextEncoder().encode(effect).length + 1;
    const pointer = core._malloc(size);
    try {
      core.stringToUTF8(effect, pointer, size);
      const id = core._qtzq_find_effect(pointer);
      if (id === 0) throw new RangeError(`unknown effect '${effect}' (see catalogue())`);
      return id;
    } finally {
      core._free(pointer);
    }
  }
}

function isImageLike(value) {
  return typeof value === "object" && value !== null && !ArrayBuffer.isView(value) && "data" in value;
}

function typeName(value) {
  if (value === null) return "null";
  return typeof value === "object" ? value.constructor?.name ?? "object" : typeof value;
}

function checkSize(core, width, height, what) {
  if (!Number.isInteger(width) || !Number.isInteger(height))
    throw new TypeError(`${what}: width and height must be integers`);
  if (!core._qtzq_image_size_supported(width, height))
    throw new RangeError(`${what}: size ${width}x${height} is not supported (at least 1x1, a buffer under 2 GiB)`);
}

// The RGBA bytes and size of an ImageData-like object ({data, width,
// height}) or of a bare array sized by options.width/height.
function pixelsOf(image, options, what) {
  let data = image, width = options.width, height = options.height;
  if (isImageLike(image)) ({ data, width, height } = image);
  if (!(data instanceof Uint8ClampedArray || data instanceof Uint8Array))
    throw new TypeError(`${what} must be ImageData or a Uint8ClampedArray of RGBA pixels, not ${typeName(data)}`);
  if (!Number.isInteger(width) || !Number.isInteger(height))
    throw new TypeError(`${what}: give its width and height (options.width, options.height) as integers`);
  if (width < 1 || height < 1 || data.length !== width * height * 4)
    throw new RangeError(`${what}: ${data.length} bytes is not ${width}x${height} RGBA pixels (${Math.max(0, width * height * 4)} bytes)`);
  return { data, width, height };
}

function tablesOf(tables, info) {
  if (tables == null) return null;
  if (!(tables instanceof Uint8Array || tables instanceof Uint8ClampedArray))
    throw new TypeError(`options.tables must be a Uint8Array, not ${typeName(tables)}`);
  if (info.tables.length === 0) throw new RangeError(`${info.id} ${info.preset} takes no blend table set`);
  if (tables.length < TABLE_SET_BYTES)
    throw new RangeError(`options.tables has ${tables.length} bytes; a blend table set has ${TABLE_SET_BYTES}`);
  return tables;
}

function makeImage(data, width, height) {
  if (typeof ImageData === "function") return new ImageData(data, width, height);
  return { data, width, height, colorSpace: "srgb" };
}

function deepFreeze(value) {
  if (typeof value === "object" && value !== null) Object.values(value).forEach(deepFreeze);
  return Object.freeze(value);
}
