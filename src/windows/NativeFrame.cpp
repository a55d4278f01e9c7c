#include "windows/NativeFrame_p.h"

#if defined(Q_OS_WIN)
#include <qt_windows.h>
#endif

namespace Velmora {

#if defined(Q_OS_WIN)

namespace {

HWND HandleOf(WId window)
{
    return reinterpret_cast<HWND>(window);
}

NativeFrame::Message ReadMessage(const void *message)
{
    const auto *msg = static_cast<const MSG *>(message);
    return {reinterpret_cast<WId>(msg->hwnd), msg->message};
}

void AddFrameStyle(WId window)
{
    const LONG style = GetWindowLongW(HandleOf(window), GWL_STYLE);
    SetWindowLongPtrW(HandleOf(window), GWL_STYLE, style | WS_CAPTION | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX);
}

NativeFrame::Edges OverlappedFrame()
{
    RECT rect = {};
    AdjustWindowRectEx(&rect, WS_OVERLAPPEDWINDOW, FALSE, 0);
    return {int(rect.left), int(rect.top), int(rect.right), int(rect.bottom)};
}

void RefreshFrame(WId window)
{
    SetWindowPos(HandleOf(window), nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

constexpr NativeFrame kWindowsFrame = {&ReadMessage, &AddFrameStyle, &OverlappedFrame, &RefreshFrame};

} // namespace

const NativeFrame *SystemNativeFrame()
{
    return &kWindowsFrame;
}

#else

const NativeFrame *SystemNativeFrame()
{
    return nullptr;
}

#endif

} // namespace Velmora
