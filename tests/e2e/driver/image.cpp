// Screen capture with GDI, bitmap reading and .bmp writing, and the pixel comparisons that the
// checks of the scenarios are made of.
#include "image.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace e2e {

namespace {

// Row length of a 24-bit DIB, padded to four bytes as GDI and the .bmp format want it.
int PaddedRow(int width) {
    return (width * 3 + 3) & ~3;
}

BITMAPINFO TopDownInfo(int width, int height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

// Drops the row padding of a top-down 24-bit DIB.
Image ImageOfPaddedRows(const unsigned char* rows, int width, int height) {
    Image image;
    image.width = width;
    image.height = height;
    image.bgr.resize(static_cast<size_t>(width) * height * 3);
    for (int y = 0; y < height; ++y)
        std::copy_n(rows + static_cast<size_t>(y) * PaddedRow(width), width * 3,
                    image.bgr.begin() + static_cast<size_t>(y) * width * 3);
    return image;
}

} // namespace

COLORREF Image::Pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) return CLR_INVALID;
    const unsigned char* p = &bgr[(static_cast<size_t>(y) * width + x) * 3];
    return RGB(p[2], p[1], p[0]);
}

Image CaptureScreen(int left, int top, int width, int height) {
    Image image;
    if (width <= 0 || height <= 0) return image;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    BITMAPINFO info = TopDownInfo(width, height);
    void* bits = nullptr;
    HBITMAP section = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (section && bits) {
        HGDIOBJ old = SelectObject(memory, section);
        BitBlt(memory, 0, 0, width, height, screen, left, top, SRCCOPY);
        GdiFlush();
        image = ImageOfPaddedRows(static_cast<unsigned char*>(bits), width, height);
        SelectObject(memory, old);
        DeleteObject(section);
    }
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return image;
}

Image CaptureWholeScreen() {
    return CaptureScreen(0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN));
}

Image ImageOfBitmap(HBITMAP bitmap) {
    BITMAP header{};
    if (!bitmap || !GetObject(bitmap, sizeof header, &header)) return {};
    BITMAPINFO info = TopDownInfo(header.bmWidth, header.bmHeight);
    std::vector<unsigned char> rows(static_cast<size_t>(PaddedRow(header.bmWidth)) * header.bmHeight);
    HDC screen = GetDC(nullptr);
    int copied = GetDIBits(screen, bitmap, 0, header.bmHeight, rows.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    if (copied != header.bmHeight) return {};
    return ImageOfPaddedRows(rows.data(), header.bmWidth, header.bmHeight);
}

ImageDifference CompareAreas(const Image& a, int ax, int ay, const Image& b, int bx, int by, int width,
                             int height, int tolerance) {
    ImageDifference difference;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            COLORREF pa = a.Pixel(ax + x, ay + y);
            COLORREF pb = b.Pixel(bx + x, by + y);
            int largest = 255;
            if (pa != CLR_INVALID && pb != CLR_INVALID)
                largest = std::max({std::abs(GetRValue(pa) - GetRValue(pb)),
                                    std::abs(GetGValue(pa) - GetGValue(pb)),
                                    std::abs(GetBValue(pa) - GetBValue(pb))});
            difference.largest = std::max(difference.largest, largest);
            if (largest > tolerance) ++difference.pixels;
        }
    }
    return difference;
}

int CountPixelsNear(const Image& image, int left, int top, int width, int height, COLORREF colour,
                    int tolerance) {
    int count = 0;
    for (int y = top; y < top + height; ++y) {
        for (int x = left; x < left + width; ++x) {
            COLORREF p = image.Pixel(x, y);
            if (p == CLR_INVALID) continue;
            if (std::abs(GetRValue(p) - GetRValue(colour)) <= tolerance &&
                std::abs(GetGValue(p) - GetGValue(colour)) <= tolerance &&
                std::abs(GetBValue(p) - GetBValue(colour)) <= tolerance)
                ++count;
        }
    }
    return count;
}

bool SaveBmp(const Image& image, const std::string& path) {
    const int row = PaddedRow(image.width);
    const DWORD pixelBytes = static_cast<DWORD>(row) * image.height;
    BITMAPFILEHEADER file{};
    file.bfType = 0x4D42;
    file.bfOffBits = sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER);
    file.bfSize = file.bfOffBits + pixelBytes;
    BITMAPINFOHEADER header = TopDownInfo(image.width, image.height).bmiHeader;
    header.biHeight = image.height; // bottom up, the form every reader takes
    header.biSizeImage = pixelBytes;
    std::vector<unsigned char> rows(pixelBytes, 0);
    for (int y = 0; y < image.height; ++y)
        std::copy_n(image.bgr.begin() + static_cast<size_t>(y) * image.width * 3, image.width * 3,
                    rows.begin() + static_cast<size_t>(image.height - 1 - y) * row);
    FILE* out = std::fopen(path.c_str(), "wb");
    if (!out) return false;
    bool written = std::fwrite(&file, sizeof file, 1, out) == 1 &&
                   std::fwrite(&header, sizeof header, 1, out) == 1 &&
                   std::fwrite(rows.data(), 1, rows.size(), out) == rows.size();
    return std::fclose(out) == 0 && written;
}

} // namespace e2e
