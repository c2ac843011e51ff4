// PNG files for the tests, through pngjs: they hand pixels to the native
// qtzq tool and read its results as RGBA.
import pngjs from "pngjs";

const { PNG } = pngjs;

// RGBA bytes -> PNG file bytes.
export function encodePng({ data, width, height }) {
  return PNG.sync.write({ width, height, data: Buffer.from(data.buffer, data.byteOffset, data.byteLength) });
}

// PNG file bytes -> {data (RGBA), width, height}; any colour type.
export function decodePng(file) {
  const png = PNG.sync.read(file);
  return { data: new Uint8ClampedArray(png.data.buffer, png.data.byteOffset, png.data.length), width: png.width, height: png.height };
}
