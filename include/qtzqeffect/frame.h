// Frames, collages (puzzles) and speech bubbles, with their file readers.
//
// Every reader takes the bytes of a file that the application loaded whole
// and the length it loaded. Integers in the files are 32-bit little-endian
// two's complement, floats IEEE single precision, at any alignment. The
// files come from outside, so every reader checks each field against the
// given length before it reads it and never reads past that length: a file
// too short for what it announces is refused or ends decoding, as each
// member below documents, and the object stays usable. A null pointer or a
// length below 1 counts as an empty file.
//
// Pixel buffers are BGRA (byte 0 blue, 1 green, 2 red, 3 alpha), width * 4
// bytes per row, rows top to bottom. No buffer handed in or out may exceed
// 2147483647 bytes (width * height * 4); larger sizes are refused.
//
// Nothing here locks: an object is used by one thread at a time, and the
// global puzzle format table m_format and the rand() generator that
// cfreepuzzle reseeds are shared by the whole process.
#ifndef QTZQEFFECT_FRAME_H
#define QTZQEFFECT_FRAME_H

#include "qtzqeffect/export.h"

// --- Geometry records ------------------------------------------------------------

// A size in pixels.
struct _tagCGSize {
    int width;
    int height;
};

// A rectangle in pixels: left, top, width, height.
struct _tagCGRect {
    int x;
    int y;
    int width;
    int height;
};

// A source region for drawRect: right and bottom are exclusive.
struct ZQ2DRect {
    int left;
    int top;
    int right;
    int bottom;
};

// --- Painting ----------------------------------------------------------------------
//
// Both functions paint source-over onto an opaque target, pixel by pixel,
// with the source pixel's alpha a: a = 255 copies blue, green and red;
// a = 0 leaves the target pixel alone; otherwise each colour byte becomes
// (source * a + target * (255 - a)) >> 8 (a shift, not a division by 255, so
// blending two equal values loses a little brightness). A painted pixel gets
// alpha 255. Pixels that fall outside the target are clipped one by one.
// A null buffer or a side below 1 paints nothing.

// Paints the whole piece (piece_width x piece_height) with its top-left
// corner at (x, y) of the target.
QTZQ_API void draw(unsigned char* target, int target_width, int target_height, int x, int y,
                   unsigned char* piece, int piece_width, int piece_height);

// Paints the source pixels in columns region.left .. region.right - 1 and
// rows region.top .. region.bottom - 1 with the region's top-left corner at
// (x, y) of the target. Region pixels outside the source are skipped, as
// are those landing outside the target; nothing is painted when the region
// has no rows.
QTZQ_API void drawRect(unsigned char* target, int target_width, int target_height,
                       unsigned char* source, int source_width, int source_height, int x, int y,
                       ZQ2DRect region);

// --- Frame ---------------------------------------------------------------------------

// A decorative frame of eight pieces, drawn around a photo: four corners
// (roles 0 top-left, 1 bottom-left, 2 top-right, 3 bottom-right) and four
// edges repeated along the sides (4 top, 5 bottom, 6 left, 7 right). Each
// role uses the slot of the same number.
//
// Use: ReadFrameFile; then for each slot whose GetFrameImage is not null,
// decode that block (its encoding is the application's business) and hand
// the pixels back with SetFrameImageData; then GetCompositeImage as often as
// wanted. The object owns every block and the composite image; it cannot be
// copied.
class QTZQ_API cframe {
public:
    // Empty frame: eight empty slots, insets and sizes 0, no composite.
    cframe();
    // Releases the eight piece blocks, then the composite image.
    ~cframe();

    cframe(const cframe&) = delete;
    cframe& operator=(const cframe&) = delete;

    // Reads a frame file (see DecodeFrameFile). Returns 0 and changes
    // nothing when data is null or length is below 1; otherwise 1, also for
    // a truncated or meaningless file.
    int ReadFrameFile(unsigned char* data, int length);

    // Decodes a frame file and always returns 1. Layout: corner insets x, y
    // of corners 0..3 alternating at bytes 44..75, then from byte 80 one
    // record per slot 0..7: a flag byte and 3 spare bytes; when the flag is
    // 1, 4 spare bytes, a signed data length n and n bytes of data.
    //
    // - A record whose flag is not 1 empties its slot (releases the block).
    // - A present record with n > 0 replaces the slot's block (the old one
    //   is released) and records n as its length; the slot's piece size goes
    //   back to 0 x 0 until SetFrameImageData gives the decoded size.
    // - A present record with n <= 0 only clears the slot's flag and moves
    //   on to data start + n (a negative n moves back).
    // - Decoding stops after a present record that ends at or beyond the
    //   length, and at the first field that does not lie wholly inside the
    //   length (an inset, a flag byte, a length word, a data block). Every
    //   field read before stays; the slot of the incomplete record and all
    //   later slots keep what they held.
    int DecodeFrameFile(unsigned char* data, int length);

    // The data block of slot 0..7 (still owned by the object; null for an
    // empty slot) and, in `length`, the data length the file gave it.
    // A slot outside 0..7 gives null and length 0.
    unsigned char* GetFrameImage(int slot, int& length);

    // Stores a copy of width * height * 4 bytes of decoded pixels as slot
    // 0..7's piece (the previous block is released; `pixels` may be that
    // very block) and records the piece size. The data length and the flag
    // stay as the file set them. Refused, changing nothing: a slot outside
    // 0..7, a negative side, more than 2147483647 bytes, or null pixels for
    // a non-empty size.
    void SetFrameImageData(int slot, unsigned char* pixels, int width, int height);

    // Builds the framed photo: a new opaque-white buffer with the photo
    // (cropped by the part of each inner span that is not a whole number of
    // edge pieces, half on each side) painted in, then the present corners,
    // then the edges repeated along the sides; stores its size in
    // *out_width and *out_height and returns it. The buffer stays owned by
    // the object and is valid until the next call or the object's end.
    //
    // A scale other than exactly 1.0 first replaces each corner inset by
    // trunc(inset * scale + 0.5) in single precision, and keeps the result:
    // a second call scales the scaled insets again, so pass the scale once.
    // Values beyond the int range saturate and NaN gives 0.
    //
    // A piece is painted only when its slot is present and holds decoded
    // pixels of a size of at least 1 x 1. An edge piece of width 0 (top) or
    // height 0 (left) leaves that span uncropped and draws no tiles along it.
    //
    // Every call releases the previous composite image first. It returns
    // null with out sizes 0 (null out pointers are skipped) for a null
    // photo, a photo side below 1 or above the size limit (insets left
    // alone), or a result above the size limit (insets already scaled).
    unsigned char* GetCompositeImage(unsigned char* photo, int width, int height, float scale,
                                     int* out_width, int* out_height);

private:
    int m_role[8];                    // slot of each role; 0..7, never changed
    int m_pieceCount;                 // records in a frame file: 8
    unsigned char* m_compositeImage;  // last framed photo, owned
    int m_insetX[4];                  // per corner slot
    int m_insetY[4];                  // per corner slot
    int m_present[8];                 // 1 when the file carried data for the slot
    unsigned char* m_pieceData[8];    // file block, later decoded pixels; owned
    _tagCGSize m_pieceSize[8];        // size of the decoded pixels; 0 x 0 before
    int m_pieceLength[8];             // data length from the file
};

// --- Puzzle format --------------------------------------------------------------------

// A template collage layout: the size of the finished collage and the
// rectangles of up to nine photo cells, read from a "ZQPTM" file. The
// library keeps one table, m_format, shared by every template collage.
class QTZQ_API cpuzzleformat {
public:
    // An empty table: count 0, size 0 x 0, all cells zero.
    cpuzzleformat();
    virtual ~cpuzzleformat();

    // Reads a "ZQPTM" file: magic at byte 12, count n at 36, result width
    // and height at 40 and 44, then from byte 56 n cells of x, y, width,
    // height. Replaces count and size and cells 0..n-1, and returns 1; a
    // count of 0 or less is stored as it stands and no cell changes.
    // Returns 0 and leaves the table unchanged for a wrong magic, a file too
    // short for its header (48 bytes) or for its n cells, or n above 9.
    int ReadPuzzleFormatFile(unsigned char* data, int length);

    // The count of the last file read (as the file gave it, possibly <= 0).
    int GetPuzzleFormatCount();

    // The size of the finished collage.
    _tagCGSize GetPuzzleResultSize();

    // Cell 0..8 as stored (cells beyond the count keep what an earlier file
    // or SetPuzzleRectWithIndex put there); all zeros for another index.
    _tagCGRect GetPuzzleRectWithIndex(int index);

    // Overwrites cell 0..8; another index is ignored.
    void SetPuzzleRectWithIndex(int index, _tagCGRect rect);

private:
    int m_formatCount;
    _tagCGSize m_resultSize;
    _tagCGRect m_cellRect[9];
};

// The process-wide puzzle format table: zeroed when the library is loaded,
// destroyed at process exit.
QTZQ_API extern cpuzzleformat m_format;

// --- Template collage ---------------------------------------------------------------

// A collage that lays photos into the cells of m_format. Only its access to
// the format table exists so far; the layout step that computes the two
// layout offsets is not part of the library yet, so they stay 0 unless a
// derived class sets them.
class QTZQ_API ctemplatepuzzle {
public:
    // Layout offsets 0.
    ctemplatepuzzle();
    virtual ~ctemplatepuzzle();

    // Reads a "ZQPTM" file into m_format (for every template collage) and
    // returns m_format's result.
    int ReadPuzzleFormatFile(unsigned char* data, int length);

    // m_format's count.
    int GetFormatCount();

    // m_format's cell 0..8 moved right by half the horizontal and down by
    // half the vertical layout offset (each half offset * 0.5 truncated
    // toward zero); width and height unchanged. All zeros for another index.
    _tagCGRect GetFormatRectWithIndex(int index);

protected:
    int m_layoutOffsetX;  // horizontal layout offset, in pixels
    int m_layoutOffsetY;  // vertical layout offset, in pixels
};

// --- Free collage ---------------------------------------------------------------------

// Up to nine photos scattered over a 640 x 896 canvas, each cell placed,
// sized and tilted within ranges that a "MZYPT" layout file gives. The cells
// are worked out once, at reading time; the application draws the photos.
class QTZQ_API cfreepuzzle {
public:
    // No layout: count 0, size 0 x 0, all cells zero.
    cfreepuzzle();
    virtual ~cfreepuzzle();

    // Reads a "MZYPT" layout: magic at byte 12, count n at 36, from byte 56
    // n records of 56 bytes. On success stores n, sets the canvas to
    // 640 x 896, lays out cells 0..n-1 and returns 1 (a count of 0 or less
    // lays out nothing). Refusals return 0:
    // - length 31 or less, a wrong magic, or no room for the count: nothing
    //   changes;
    // - n above 9: the count is stored all the same (kept on purpose; the
    //   getters still answer only for the nine cells that exist), nothing
    //   else changes;
    // - a file too short for its n records: nothing changes.
    //
    // Each cell: shifts dx, dy and rotation are AverageRandom draws over the
    // record's integer ranges, truncated; a scale s is drawn over its float
    // range; the cell is s times the nominal size, centred on the nominal
    // cell and shifted by (dx, dy). As AverageRandom reseeds, reading the
    // same file always gives the same cells, with this platform's rand().
    int ReadFrameFile(unsigned char* data, int length);

    // A value with two decimals between least and greatest, in single
    // precision: lo and hi are least * 100 and greatest * 100 truncated;
    // hi / 100 when they are equal, else (lo + rand() % (hi - lo)) / 100.
    // Reseeds rand() with 2147483647 at every call (on purpose: every draw
    // takes the generator's first value), which disturbs any other user of
    // rand() in the process.
    float AverageRandom(float least, float greatest);

    // The canvas size: 640 x 896 once a layout has been read.
    _tagCGSize GetResultSize();

    // The count of the last layout file (also a refused one with n > 9).
    int GetCount();

    // The tilt of cell `index`, a whole number in the file's unit (degrees);
    // 0.0 for an index outside 0..count-1 or 0..8.
    float GetRotationWithIndex(int index);

    // The rectangle of cell `index`; all zeros for an index outside
    // 0..count-1 or 0..8.
    _tagCGRect GetMaxRectWithIndex(int index);

    // Where a photo of size `photo` is drawn inside cell `index`, by the
    // rule of ChangeRectWithMaxRect; all zeros for an index outside
    // 0..count-1 or 0..8.
    _tagCGRect GetViewRectWithIndex(int index, _tagCGSize photo);

    // Fits a photo into `rect`, in double precision: k = the smaller of
    // rect.width / photo.width and rect.height / photo.height, at most 1 (a
    // photo is never enlarged); the result is k times the photo size,
    // truncated, centred in `rect` (offsets truncated). All zeros for a
    // photo side below 1.
    _tagCGRect ChangeRectWithMaxRect(_tagCGSize photo, _tagCGRect rect);

private:
    struct Cell {
        float rotation;
        int x;
        int y;
        int width;
        int height;
        int spare;  // not used
    };

    _tagCGSize m_resultSize;
    Cell m_cell[9];
    int m_count;
};

// --- Speech bubble --------------------------------------------------------------------

// The text box and text colour of a speech bubble, read from a bubble file;
// the application draws the balloon and the text itself.
class QTZQ_API csbubble {
public:
    // All fields zero.
    csbubble();

    // Reads the text box corners left, top (bytes 187, 191), right, bottom
    // (211, 215) and the four colour bytes at 220..223, and sets the text
    // draw rectangle to (left, top, right - left, bottom - top); corners are
    // not ordered, so the sizes may be negative. Always returns 383. A file
    // shorter than 224 bytes (or null) is not read at all: every field
    // keeps its value.
    int ReadFrameFile(unsigned char* data, int length);

    // The text draw rectangle.
    _tagCGRect GetTextDrawRect();

    // Colour byte 0..2 as stored in the file (in the file's channel order);
    // 255 for index 3 (the text is always drawn opaque); 0 for any other
    // index.
    unsigned char GetTextColorWithIndex(int index);

private:
    int m_left;
    int m_top;
    int m_right;
    int m_bottom;
    unsigned char m_textColor[4];
    _tagCGRect m_textDrawRect;
};

#endif  // QTZQEFFECT_FRAME_H
