#pragma once

#include <Velmora/VelmoraExport.h>

#include <QPushButton>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace Velmora {

class QcIconButton;

/// One tab of a QcDockAreaTabBar: a title that fades out at its end, and a close button while the tab is the current one.
///
/// A title that does not fit is shown in a tool tip, unless the host gave the tab one of its own.
///
/// While keyboard cues are on, a letter behind an & is the tab's key, as in a QTabBar: see SetKeyboardCuesEnabled().
class VELMORA_EXPORT QcDockAreaTabBarButton : public QPushButton
{
    Q_OBJECT

public:
    explicit QcDockAreaTabBarButton(QWidget *parent = nullptr);
    ~QcDockAreaTabBarButton() override;

    /// The title. It is not that of QAbstractButton, which stays empty.
    void setText(const QString &text);
    /// The tab's place in its row; -1 until it has one.
    void setTabIndex(int index);
    int getTabIndex() const;
    /// Whether a line parts the tab from the next one. Off at first.
    void setDrawLine(bool drawLine);

Q_SIGNALS:
    void signalCloseButtonClicked();

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void onToggled();

private:
    friend class QcDockAreaTabFrame; // knows by it which tab goes with a page

    void NameCloseButton();
    void FollowMnemonic();
    QString Title() const;
    void PaintLabel();

    int m_tabIndex = -1;
    QLabel *m_textLabel = nullptr;
    QcIconButton *m_closeButton = nullptr;
    bool m_drawLine = false;
    static constexpr int GRADIENT_WIDTH = 16;
    QWidget *m_page = nullptr; // may be dead: only compared
};

} // namespace Velmora
