// Pictures the driver reads pixels from: screen captures, the program's own skin, and the .bmp
// files written for the screenshots of a run.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace e2e {

// A picture of 24-bit pixels, rows top down, three bytes (blue, green, red) each, no padding.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> bgr;

    // The pixel at (x, y) as a GDI colour.
    COLORREF Pixel(int x, int y) const;
    bool Empty() const { return width == 0; }
};

// How far two areas of the same size differ: pixels that differ by more than the tolerance in
// any channel, and the largest channel difference.
struct ImageDifference {
    int pixels = 0;
    int largest = 0;
};

// Copies a rectangle of the screen, in screen coordinates, as the user sees it.
Image CaptureScreen(int left, int top, int width, int height);

// Copies the whole screen.
Image CaptureWholeScreen();

// Reads a bitmap into an image by GetDIBits.
Image ImageOfBitmap(HBITMAP bitmap);

// Compares the area of `a` at (ax, ay) with that of `b` at (bx, by), both `width` by `height`.
ImageDifference CompareAreas(const Image& a, int ax, int ay, const Image& b, int bx, int by, int width,
                             int height, int tolerance);

// Counts the pixels of an area whose three channels are all within `tolerance` of `colour`.
int CountPixelsNear(const Image& image, int left, int top, int width, int height, COLORREF colour,
                    int tolerance);

// Writes the image as a 24-bit .bmp file; false when the file could not be written.
bool SaveBmp(const Image& image, const std::string& path);

} // namespace e2e
