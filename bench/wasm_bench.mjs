// Times the WebAssembly build under node against the native build on a
// few cases (the test scene at 4000 x 3000, the library's own scene in both)
// and writes the "WebAssembly build" section of BENCHMARKS.md.
//
//   node bench/wasm_bench.mjs WASM_PACKAGE_DIR NATIVE_QTZQ_BENCH [--write BENCHMARKS.md]
//
// Each wasm case is the fastest of five in-place calls through the
// JavaScript API (copies across the boundary and the RGBA <-> BGRA swaps
// included); the
// native numbers are one run of qtzq-bench's cases of the same name, with
// its vector kernels and on its scalar reference path (the same case for
// effects that have no vector path).
import { execFileSync } from "node:child_process";
import { existsSync, readFileSync, statSync, writeFileSync } from "node:fs";
import { join } from "node:path";
import { pathToFileURL } from "node:url";
import { gzipSync } from "node:zlib";

const [packageDir, nativeBench, flag, output] = process.argv.slice(2);
const WIDTH = 4000, HEIGHT = 3000;
const HEADING = "## WebAssembly build";

const { load } = await import(pathToFileURL(join(packageDir, "index.js")).href);
const effects = await load();
const scene = effects.testScene(WIDTH, HEIGHT), material = effects.testScene(WIDTH, HEIGHT);

const CASES = [
  ["StyleFilm (1020)", "effect/1020/StyleFilm", () => effects.apply(1020, scene, { inPlace: true })],
  ["StyleOldPhoto (1026)", "effect/1026/StyleOldPhoto", () => effects.apply(1026, scene, { materials: [material], inPlace: true })],
  ["Gaussian blur, radius 20", "blur/gaussian/r20", () => effects.gaussianBlur(scene, 20, { inPlace: true })],
];
// Calls that do nothing but their copies (a blur of radius 0): in place, as
// the cases above, and returning a new buffer, as calls without inPlace do.
const COPIES = [
  ["copies alone, in place", () => effects.gaussianBlur(scene, 0, { inPlace: true })],
  ["copies alone, new result buffer", () => effects.gaussianBlur(scene, 0)],
];

function fastestMs(run) {
  const times = [0, 1, 2, 3, 4].map(() => {
    const start = performance.now();
    run();
    return performance.now() - start;
  });
  return Math.min(...times);
}

// qtzq-bench's wall times in ms by case name; QTZQ_BENCH_PHOTO names no
// file, so it falls back to the same generated scene.
function nativeTimes() {
  const filter = `^(${CASES.map(([, name]) => name).join("|")})(/scalar)?/real_time$`;
  const json = execFileSync(nativeBench, [`--benchmark_filter=${filter}`, "--benchmark_format=json"], {
    env: { ...process.env, QTZQ_BENCH_SIZE: `${WIDTH}x${HEIGHT}`, QTZQ_BENCH_PHOTO: "/nonexistent" },
    stdio: ["ignore", "pipe", "ignore"], maxBuffer: 1 << 24,
  });
  const scale = { ns: 1e-6, us: 1e-3, ms: 1, s: 1e3 };
  const times = {};
  for (const bench of JSON.parse(json).benchmarks)
    times[bench.name.replace(/\/real_time$/, "")] = bench.real_time * scale[bench.time_unit];
  return times;
}

const native = nativeTimes();
const wasmFile = join(packageDir, "qtzqeffect-core.wasm");
const bytes = readFileSync(wasmFile);
const rows = CASES.map(([label, name, run]) => {
  // Effects without fast paths have no scalar twin: their one path is scalar.
  const ms = fastestMs(run), vector = native[name], scalar = native[`${name}/scalar`] ?? vector;
  return `| ${label} | ${ms.toFixed(0)} | ${vector.toFixed(0)} | ${scalar.toFixed(0)} | ${(ms / scalar).toFixed(2)} | ${(ms / vector).toFixed(2)} |`;
});
for (const [label, run] of COPIES) rows.push(`| ${label} | ${fastestMs(run).toFixed(0)} | | | | |`);
const section = `${HEADING}

Written by \`bench/wasm_bench.mjs\` (kept by \`bench/report.py\`): the
Emscripten build (\`-O3\`, WebAssembly SIMD for the integer kernels only)
under node ${process.version} against \`qtzq-bench\` (\`-O3\`) in the same
session, on the generated test scene at ${WIDTH} x ${HEIGHT}. Rough numbers
from a shared machine: the fastest of five wasm calls, one native run. The
wasm times are whole in-place calls of the JavaScript API (\`inPlace: true\`),
the copies in and out of the module's memory and the RGBA/BGRA swaps
included; the last two rows are calls that do nothing but their copies (a
blur of radius 0), in place and returning a new buffer: the library's own
share of a call is its time less the first. StyleFilm and StyleOldPhoto have
no vector path: their native time is the scalar one.

\`qtzqeffect-core.wasm\`: ${bytes.length} bytes (${gzipSync(bytes, { level: 9 }).length} gzipped).

| case | wasm ms | native ms | native scalar ms | x native scalar | x native |
|---|---|---|---|---|---|
${rows.join("\n")}
`;

process.stdout.write(section);
if (flag === "--write") {
  const old = existsSync(output) ? readFileSync(output, "utf8") : "";
  const at = old.indexOf(`\n${HEADING}\n`);
  writeFileSync(output, `${(at >= 0 ? old.slice(0, at) : old).trimEnd()}\n\n${section}`);
  console.log(`wrote ${output} (${statSync(output).size} bytes)`);
}
