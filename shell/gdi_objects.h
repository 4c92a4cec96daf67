// Small owners of GDI resources, so that every Create or Get has its Delete or Release on every
// path out of a paint or a dialog handler.
#pragma once

#include <windows.h>

// BeginPaint on construction, EndPaint on destruction.
class PaintSession {
  public:
    explicit PaintSession(HWND window) : window(window) { dc = BeginPaint(window, &paint); }
    ~PaintSession() { EndPaint(window, &paint); }
    PaintSession(const PaintSession&) = delete;
    PaintSession& operator=(const PaintSession&) = delete;
    HDC Dc() const { return dc; }
    const RECT& Area() const { return paint.rcPaint; }

  private:
    HWND window;
    PAINTSTRUCT paint{};
    HDC dc;
};

// The device context of a window, released on destruction.
class WindowDc {
  public:
    explicit WindowDc(HWND window) : window(window), dc(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window, dc); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;
    HDC Get() const { return dc; }

  private:
    HWND window;
    HDC dc;
};

// A memory device context compatible with `reference`, deleted on destruction.
class MemoryDc {
  public:
    explicit MemoryDc(HDC reference) : dc(CreateCompatibleDC(reference)) {}
    ~MemoryDc() { DeleteDC(dc); }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    HDC Get() const { return dc; }

  private:
    HDC dc;
};

// Selects an object into a device context and puts the former one back on destruction.
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc(dc), former(SelectObject(dc, object)) {}
    ~Selection() { SelectObject(dc, former); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC dc;
    HGDIOBJ former;
};

// A solid pen, deleted on destruction (after any Selection of it has ended).
class SolidPen {
  public:
    explicit SolidPen(COLORREF colour) : pen(CreatePen(PS_SOLID, 1, colour)) {}
    ~SolidPen() { DeleteObject(pen); }
    SolidPen(const SolidPen&) = delete;
    SolidPen& operator=(const SolidPen&) = delete;
    HPEN Get() const { return pen; }

  private:
    HPEN pen;
};
