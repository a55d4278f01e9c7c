#pragma once

#include <QObject>
#include <QSet>
#include <QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// Tells of faults of the theme, as SetThemeChecksEnabled() says; there while it is enabled.
class ThemeChecks : public QObject
{
    Q_OBJECT

public:
    /// Tells of a token that is not in the table at \a table; of none before there is a table, since all would lack.
    void TellUnknown(const QString &token, const QString &table);
    /// \a widget has asked for a stylesheet or a handler, and so needs a table when it is painted.
    void NoteRegistered(const QWidget *widget);
    /// Watches what is painted if there is an application, and no table yet.
    void WatchPaints();
    /// There is a table, and from now on always one.
    void EndWatching();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool NeedsTable(const QWidget &widget) const;
    void Forget(const QObject *widget);

    QSet<QString> m_unknownTokens;
    QSet<const QObject *> m_registered;
    QSet<const QObject *> m_paintedTooEarly;
};

/// Null while the checks are off.
ThemeChecks *ActiveThemeChecks();

/// What the theme engine says once it has a table.
void TellChecksOfTable();

/// What a new application object does: enables the checks if the environment says so, and has those that are enabled watch it.
void FollowThemeChecks();

} // namespace Velmora
