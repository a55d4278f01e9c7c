#pragma once

#include <Velmora/VelmoraExport.h>

#include <QComboBox>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QSize>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QPainter;
QT_END_NAMESPACE

namespace Velmora {

/// A drop-down list, 28 pixels high: a combo box with a face of its own and a popup of at most 7 rows of 28 pixels, which scrolls
/// under a QcScrollBar.
///
/// The current item has a tick. Once one item has an icon, the texts of all move right to make room for it; other decorations than
/// icons and pixmaps are ignored. While no item is current the face shows the placeholder text, also where the selector is editable. A
/// disabled item and a separator look like any other.
///
/// Without a width of its own a selector is hardly wider than its arrow: put it into a layout that widens it, or set a size policy.
/// Give it a name by QLabel::setBuddy() or setAccessibleName(). Wheel and keys are those of a combo box.
///
/// A model, a root index or a model column set later is followed. A view set by the host is the host's in all: it has neither
/// our scroll bar nor our rows. A delegate set by the host paints all of a row, the tick too.
///
/// Handlers of activated() and its kin delete the selector by deleteLater(): Qt goes on after them.
class VELMORA_EXPORT QcSelector : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(bool editable READ isEditable WRITE setEditable) // through our setEditable()

public:
    explicit QcSelector(QWidget *parent = nullptr);

    /// Hides the call of QComboBox, through which a text typed into the selector stands 2 pixels further right, and Qt's own scroll bar
    /// may show in the list.
    void setEditable(bool editable);

    /// Whether any item has an icon.
    bool hasItemsWithIcons() const;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void updateIconPresence();

private:
    void checkIconPresence();
    void SetUpPopup();
    void FollowModel();
    void LookForIcon(int first, int last);
    void OnRowsInserted(int first, int last);
    void OnRowsRemoved();
    void OnDataChanged(int first, int last);
    void UpdateView();
    void ShowKeyboardRow(const QModelIndex &index);
    void PaintText(QPainter &painter, const QString &currentText);
    void PaintArrow(QPainter &painter);

    int m_leftPadding = 8;
    int m_rightPadding = 0;
    QSize m_arrowSize{24, 24};
    bool m_hasItemsWithIcons = false;
    // The flag costs as much as what changes, not as all items: it holds as long as one known item with an icon does.
    QPersistentModelIndex m_itemWithIcon;
    QPointer<QAbstractItemModel> m_followedModel;
    QPersistentModelIndex m_followedRoot;
    int m_followedColumn = 0;
    std::unique_ptr<QObject> m_following; // the receiver of the model's signals
};

} // namespace Velmora
