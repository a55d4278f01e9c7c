#pragma once

#include "BuiltInTables.h"

#include <QObject>

#include <chrono>
#include <optional>

QT_BEGIN_NAMESPACE
class QDBusVariant;
class QDBusPendingCallWatcher;
QT_END_NAMESPACE

namespace Examples {

/// What the desktop's settings say of dark colours and of contrast, and each change of it.
///
/// Asked of the settings portal, which Linux desktops have on the session bus; answers come while events are handled. Without a bus, a
/// portal or a sensible answer there is no wish, and nothing is said of it.
class DesktopWish : public QObject
{
    Q_OBJECT

public:
    explicit DesktopWish(QObject *parent = nullptr);

    /// The built-in table that is wished for; none if the desktop has not said.
    std::optional<Table> WishedTable() const;
    /// Handles events until the portal has answered all that it was asked, or \a moment is over.
    void AwaitAnswers(std::chrono::milliseconds moment = std::chrono::milliseconds(200));

Q_SIGNALS:
    void SignalWishChanged();
    /// Once, when no answer is awaited any more.
    void SignalAnswered();

private Q_SLOTS:
    void OnSettingChanged(const QString &space, const QString &key, const QDBusVariant &value);

private:
    void Ask(const QString &key, const QString &method);
    void TakeAnswer(QDBusPendingCallWatcher &watcher, const QString &key, const QString &method);
    void Take(const QString &key, const QVariant &value);
    void EndQuestion();

    std::optional<bool> m_isDark;
    std::optional<bool> m_hasContrast;
    int m_openQuestions = 0;
};

/// Applies the table that the desktop wishes, or leaves \a table, and returns which it is. Waits a moment for the portal, so that the
/// window need not change as soon as it shows.
Table ApplyWishedTable(DesktopWish &wish, Table table);

} // namespace Examples
