#pragma once

#include <QWidget>

namespace Velmora {

/// What a window handler asks of Windows: four calls without a rule of their own. The rules are the handler's, which
/// takes the calls from outside, so that they are tested on every platform.
struct NativeFrame
{
    struct Message
    {
        WId window;
        unsigned int id;
    };

    struct Edges
    {
        int left;
        int top;
        int right;
        int bottom;
    };

    /// The window and the number of a native message.
    Message (*readMessage)(const void *message);
    /// Adds caption, sizing border and both size boxes to the window's style, so that the system snaps and animates it.
    void (*addFrameStyle)(WId window);
    /// How far the frame of an ordinary window reaches beyond its inside: left and top are negative, top holds the caption too.
    Edges (*overlappedFrame)();
    /// Has the system work out the frame anew.
    void (*refreshFrame)(WId window);
};

/// The calls of this platform; null on all but Windows.
const NativeFrame *SystemNativeFrame();

} // namespace Velmora
