// qtzqeffect: the library's looks on RGBA pixels, computed by its
// WebAssembly build with the same bytes as the native library.

/** RGBA pixels with their size: a browser ImageData, or the same shape in node. */
export interface ImageLike {
  readonly data: Uint8ClampedArray | Uint8Array;
  readonly width: number;
  readonly height: number;
}

export interface MaterialSlot {
  /** What the preset does with the image, e.g. "screened over the photo". */
  readonly use: string;
  /** The generated default: a material kind (vignette, light-leak, grain, paper, stars, snow). */
  readonly kind: string;
  /** The default's base colour: "black", "grey" or "white". */
  readonly base: string;
}

export interface EffectInfo {
  readonly id: number;
  /** The library's function, e.g. "StyleFilm". */
  readonly preset: string;
  /** A short English name, e.g. "film". */
  readonly look: string;
  /** "image", "1 material", "2 materials", "3 materials" or "2 materials + tables". */
  readonly overload: string;
  readonly materials: readonly MaterialSlot[];
  /** Default blend modes of the three maps (blend-table effects only). */
  readonly tables: readonly string[];
  /** The preset touches process-wide library state (e.g. reseeds rand() from the clock). */
  readonly serialised: boolean;
}

export interface ApplyOptions {
  /** Width and height of a bare pixel array. */
  width?: number;
  height?: number;
  /** One RGBA image of the photo's size per slot; null or missing slots get the generated default. */
  materials?: ReadonlyArray<ImageLike | Uint8ClampedArray | Uint8Array | null | undefined>;
  /** A blend table set (196618 bytes) for the blend-table effects; generated when missing. */
  tables?: Uint8Array;
  /** Write the result over the image's own pixels and return the image (no new buffer). */
  inPlace?: boolean;
}

/** An effect id (1020) or name as the command-line tool reads it ("film", "StyleFilm", "old photo"). */
export type EffectName = number | string;

export interface Effects {
  catalogue(): EffectInfo[];
  /** The entry an id or name stands for; throws RangeError for an unknown one. */
  find(effect: EffectName): EffectInfo;
  /**
   * Applies an effect to a copy of the image. Throws TypeError for arguments of the
   * wrong type and RangeError for unknown effects, wrong sizes and surplus inputs.
   */
  apply(effect: EffectName, image: ImageData, options?: ApplyOptions): ImageData;
  apply(effect: EffectName, image: ImageLike, options?: ApplyOptions): ImageLike;
  apply(effect: EffectName, image: Uint8ClampedArray | Uint8Array,
        options: ApplyOptions & { width: number; height: number }): Uint8ClampedArray;
  /** The library's recursive Gaussian blur (radius 0 to 255 pixels) of a copy; alpha is kept. */
  gaussianBlur(image: ImageData, radius: number, options?: { inPlace?: boolean }): ImageData;
  gaussianBlur(image: ImageLike, radius: number, options?: { inPlace?: boolean }): ImageLike;
  gaussianBlur(image: Uint8ClampedArray | Uint8Array, radius: number,
               options: { width: number; height: number; inPlace?: boolean }): Uint8ClampedArray;
  /** The library's built-in test scene (default 480 x 320). */
  testScene(width?: number, height?: number): ImageData;
  /** Bytes of the module's heap in use. */
  heapInUse(): number;
}

export interface LoadOptions {
  /** The module's bytes, when the .wasm file beside index.js cannot be fetched. */
  wasmBinary?: ArrayBuffer | Uint8Array;
}

/** Loads and instantiates the module; load once and keep the result. */
export function load(options?: LoadOptions): Promise<Effects>;
