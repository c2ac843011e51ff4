// The photo page: pick or drop a photo (the library's test scene until
// then), choose a look, compare before and after with the split slider,
// download the result as PNG.
import { load } from "./qtzqeffect/index.js";

const $ = (id) => document.getElementById(id);
const before = $("before"), after = $("after"), look = $("look"), split = $("split");
const status = (text, state) => {
  $("status").textContent = text;
  if (state) document.body.dataset.state = state;
};

let effects, photo, photoName = "test-scene";

function describe(info) {
  return `${info.id} · ${info.look} (${info.preset})`;
}

function inputsText(info) {
  const parts = info.materials.map((m, i) => `material ${i + 1}: generated ${m.kind} on ${m.base} (${m.use})`);
  if (info.tables.length) parts.push(`blend tables: ${info.tables.join(", ")}`);
  return parts.length ? `Generated inputs: ${parts.join("; ")}.` : "";
}

function showSplit() {
  after.style.clipPath = `inset(0 0 0 ${split.value}%)`;
}

function draw(canvas, image) {
  canvas.width = image.width;
  canvas.height = image.height;
  canvas.getContext("2d").putImageData(image, 0, 0);
}

// Renders the chosen look on the photo (on the next frame, so that the
// status line shows first).
function render() {
  if (!effects || !photo) return;
  const info = effects.find(Number(look.value));
  status(`Applying ${info.look}...`, "busy");
  requestAnimationFrame(() => setTimeout(() => {
    try {
      const start = performance.now();
      const result = effects.apply(info.id, photo);
      draw(after, result);
      const ms = Math.round(performance.now() - start);
      status(`${describe(info)}: ${photo.width} x ${photo.height} in ${ms} ms`, "ready");
      $("info").textContent = inputsText(info);
      $("download").disabled = false;
    } catch (error) {
      status(`Failed: ${error.message}`, "error");
    }
  }));
}

async function openPhoto(file) {
  try {
    status(`Reading ${file.name}...`, "busy");
    const bitmap = await createImageBitmap(file, { colorSpaceConversion: "none", premultiplyAlpha: "none" });
    const canvas = new OffscreenCanvas(bitmap.width, bitmap.height);
    const context = canvas.getContext("2d", { willReadFrequently: true });
    context.drawImage(bitmap, 0, 0);
    photo = context.getImageData(0, 0, bitmap.width, bitmap.height);
    photoName = file.name.replace(/\.[^.]*$/, "");
    draw(before, photo);
    render();
  } catch (error) {
    status(`Cannot read ${file.name} as an image: ${error.message}`, "error");
  }
}

function download() {
  const info = effects.find(Number(look.value));
  after.toBlob((blob) => {
    const link = document.createElement("a");
    link.href = URL.createObjectURL(blob);
    link.download = `${photoName}-${info.look.replace(/\s+/g, "-")}.png`;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 1000);
  }, "image/png");
}

function listenForDrops() {
  const stage = $("stage");
  for (const type of ["dragenter", "dragover"])
    stage.addEventListener(type, (event) => { event.preventDefault(); stage.classList.add("dragging"); });
  stage.addEventListener("dragleave", () => stage.classList.remove("dragging"));
  stage.addEventListener("drop", (event) => {
    event.preventDefault();
    stage.classList.remove("dragging");
    const file = event.dataTransfer.files[0];
    if (file) openPhoto(file);
  });
}

async function start() {
  try {
    effects = await load();
  } catch (error) {
    status(`The module did not load: ${error.message}`, "error");
    return;
  }
  for (const info of effects.catalogue()) look.add(new Option(describe(info), info.id));
  look.value = "1020";
  look.addEventListener("change", render);
  split.addEventListener("input", showSplit);
  $("photo").addEventListener("change", (event) => event.target.files[0] && openPhoto(event.target.files[0]));
  $("download").addEventListener("click", download);
  listenForDrops();
  showSplit();
  photo = effects.testScene(720, 480);
  draw(before, photo);
  render();
}

start();
