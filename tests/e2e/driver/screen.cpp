// Pictures of the screen and of the program's skins, the .bmp files of a run, and the board's squares
// compared tile by tile with the skin the program draws them from.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <utility>

#include "e2e.h"

namespace e2e {

namespace {

// A top-down 24-bit DIB.
BITMAPINFOHEADER Header(int width, int height) {
    return {sizeof(BITMAPINFOHEADER), width, -height, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
}

Image ImageOf(HBITMAP bitmap) {
    BITMAP shape{};
    GetObject(bitmap, sizeof shape, &shape);
    BITMAPINFO info{Header(shape.bmWidth, shape.bmHeight), {}};
    std::vector<unsigned char> rows(static_cast<size_t>(Image::RowBytes(shape.bmWidth)) * shape.bmHeight);
    HDC screen = GetDC(nullptr);
    GetDIBits(screen, bitmap, 0, shape.bmHeight, rows.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return {shape.bmWidth, shape.bmHeight, rows};
}

} // namespace

COLORREF Image::Pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) return CLR_INVALID;
    const unsigned char* p = &bgr[static_cast<size_t>(y) * RowBytes(width) + x * 3];
    return RGB(p[2], p[1], p[0]);
}

Image CaptureScreen(const RECT& area) {
    const int width = area.right - area.left, height = area.bottom - area.top;
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    DeleteDC(memory); // which lets the bitmap go
    ReleaseDC(nullptr, screen);
    Image image = ImageOf(bitmap);
    DeleteObject(bitmap);
    return image;
}

Image CaptureWindow(HWND window, bool withMenuAndCaption) {
    RECT area{};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    if (withMenuAndCaption) GetWindowRect(window, &area);
    return CaptureScreen(area);
}

bool SaveBmp(const Image& image, const std::string& path) {
    const DWORD row = Image::RowBytes(image.width);
    BITMAPFILEHEADER file{0x4D42, 0, 0, 0, sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)};
    file.bfSize = file.bfOffBits + row * image.height;
    const BITMAPINFOHEADER header = Header(image.width, -image.height); // bottom up, as every reader takes it
    FILE* out = std::fopen(path.c_str(), "wb");
    bool written = out && std::fwrite(&file, sizeof file, 1, out) == 1 &&
                   std::fwrite(&header, sizeof header, 1, out) == 1;
    for (int y = image.height - 1; y >= 0 && written; --y)
        written = std::fwrite(&image.bgr[y * row], 1, row, out) == row;
    return out && std::fclose(out) == 0 && written;
}

int PixelsNear(const Image& image, const RECT& area, COLORREF colour, int tolerance) {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) {
            const COLORREF p = image.Pixel(x, y);
            count += p != CLR_INVALID && std::abs(GetRValue(p) - GetRValue(colour)) <= tolerance &&
                     std::abs(GetGValue(p) - GetGValue(colour)) <= tolerance &&
                     std::abs(GetBValue(p) - GetBValue(colour)) <= tolerance;
        }
    return count;
}

int PixelsDiffering(const Image& a, int ax, int ay, const Image& b, int bx, int by, int width, int height) {
    int count = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            count +=
                a.Pixel(ax + x, ay + y) != b.Pixel(bx + x, by + y) || a.Pixel(ax + x, ay + y) == CLR_INVALID;
    return count;
}

Image LoadSkin(int number, int tileSize) {
    // Smaller tiles are scaled with HALFTONE onto a copy of the skin as the program does, for the same
    // pixels.
    HMODULE module = LoadLibraryExA(".\\velok3.exe", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HBITMAP skin = LoadBitmapA(module, MAKEINTRESOURCEA(IDB_SKIN_FIRST + number));
    HBITMAP canvas = LoadBitmapA(module, MAKEINTRESOURCEA(IDB_SKIN_FIRST + number));
    HDC source = CreateCompatibleDC(nullptr), target = CreateCompatibleDC(nullptr);
    SelectObject(source, skin);
    SelectObject(target, canvas);
    SetStretchBltMode(target, HALFTONE);
    SetBrushOrgEx(target, 0, 0, nullptr);
    if (tileSize != 64)
        StretchBlt(target, 0, 0, 10 * tileSize, 7 * tileSize, source, 0, 0, 640, 448, SRCCOPY);
    DeleteDC(source);
    DeleteDC(target);
    const Image image = canvas ? ImageOf(canvas) : Image{};
    DeleteObject(skin);
    DeleteObject(canvas);
    FreeLibrary(module);
    if (image.width != 640) Abort("stock skin " + std::to_string(number) + " readable from velok3.exe");
    return image;
}

POINT Board::Centre(const std::string& square) const {
    const int file = square[0] - 'a', row = square[1] - '1';
    const int column = whiteOnTop ? 7 - file : file, line = whiteOnTop ? row : 7 - row;
    return {origin + column * tileSize + tileSize / 2, origin + line * tileSize + tileSize / 2};
}

bool Board::Shows(const Image& shot, const std::string& square, char piece, int column) const {
    const POINT centre = Centre(square);
    const int x = centre.x - tileSize / 2, y = centre.y - tileSize / 2;
    // A plain square is light where its screen column and row are both even or both odd.
    if (column < 0)
        column =
            ((x - origin) / tileSize + (y - origin) / tileSize) % 2 == 0 ? TileColumnLight : TileColumnDark;
    if (piece >= 'a' && piece <= 'z') column += BlackPieceColumnOffset;
    const int row = piece == '.' ? 0 : static_cast<int>(std::strchr(".pnbrqk", piece | 0x20) - ".pnbrqk");
    // A preview's one-pixel frame is drawn over the board's last column and row.
    return PixelsDiffering(shot, x, y, skin, column * tileSize, row * tileSize,
                           std::min(tileSize, shot.width - 1 - x),
                           std::min(tileSize, shot.height - 1 - y)) == 0;
}

std::string Board::Differing(const Image& shot, const std::string& placement,
                             const std::string& lastMove) const {
    const std::string cells = AfterMoves(placement, "");
    std::string differing;
    for (int i = 0; i < 64; ++i) {
        const std::string square{static_cast<char>('a' + i % 8), static_cast<char>('8' - i / 8)};
        const bool marked = lastMove.find(square) != std::string::npos;
        if (!Shows(shot, square, cells[i], marked ? TileColumnLastMove : -1))
            differing += (differing.empty() ? "" : " ") + square;
    }
    return differing;
}

std::string AfterMoves(const std::string& placement, const std::string& moves) {
    std::string cells;
    for (char c : placement)
        cells += c >= '1' && c <= '8' ? std::string(c - '0', '.') : c == '/' ? "" : std::string(1, c);
    auto at = [&](size_t i) -> char& { return cells[('8' - moves[i + 1]) * 8 + moves[i] - 'a']; };
    for (size_t i = 0; i + 4 <= moves.size(); i += 5)
        at(i + 2) = std::exchange(at(i), '.');
    return cells;
}

} // namespace e2e
