#pragma once

#include <QObject>

namespace Velmora {

/// Tells of each switch of KeyboardCuesEnabled(). One object, to the end of the process.
class KeyboardCuesNotifier : public QObject
{
    Q_OBJECT

public:
    static KeyboardCuesNotifier *GetInstance();

Q_SIGNALS:
    /// KeyboardCuesEnabled() gives \a enabled already, which is not what it gave before.
    void Changed(bool enabled);
};

} // namespace Velmora
