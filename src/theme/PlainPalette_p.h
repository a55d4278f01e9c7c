#pragma once

#include "theme/BakedColors_p.h"
#include "theme/PlainDrawings_p.h"

#include <QHash>
#include <QObject>
#include <QPalette>
#include <QSet>
#include <QVector>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Velmora {

/// \a base with the colours of the table. A role whose token the table does not have keeps that of \a base.
QPalette TablePalette(const QPalette &base);

/// Lets the application's palette be the table's for as long as it lives, and the kit's controls keep the one that was before.
/// Dies with the application object.
class PlainPalette : public QObject
{
    Q_OBJECT

public:
    PlainPalette();
    /// Brings back what was before.
    void GiveBack();
    /// What the application has without the table.
    const QPalette &Before() const { return m_before; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using ClassChain = QVector<QByteArray>; // a class and those that it inherits

    void FollowPalette(bool follows);
    void TakeOver();
    void OnPaletteChanged(const QPalette &palette);
    void TakeWords(const QPalette &palette);
    void LookAtSheet();
    void SetClasses();
    void KeepAsBefore(const QByteArray &name, const ClassChain &chain);
    bool IsNewOfKit(const QWidget &widget);
    void MendDrawings(QWidget &widget);

    QPalette m_before;
    QPalette m_shown;
    BakedColors m_baked;
    QHash<QByteArray, QPalette> m_beforeOfClasses;
    QSet<QByteArray> m_known;              // classes
    QHash<QByteArray, ClassChain> m_ofKit; // those of them whose palette stays as it was
    QString m_sheet;                       // of the application, as it was last seen
    PlainDrawings m_drawings;
    bool m_isOurChange = false;
    bool m_isAsking = false;
    bool m_areClassesSet = false;
};

/// Begins or ends as PlainWidgetsFollowTable() says, if there is an application object.
void FollowPlainWidgets();
/// Puts into the application's stylesheet what plain widgets that follow the table need there beside the kit's rules, or takes it out.
void FollowSheet();
/// The application's palette as it is without the colours of the table.
QPalette OwnPalette();

} // namespace Velmora
