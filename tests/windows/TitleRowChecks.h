#pragma once

#include "support/Pixels.h"
#include "support/TestCase.h"
#include "support/Tokens.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>

#include <QCoreApplication>
#include <QLayout>
#include <QPointer>
#include <QStringList>
#include <QTest>
#include <QTranslator>
#include <QWidget>
#include <QWindow>

#include <functional>

namespace VelmoraTest {

template <typename Widget>
Widget *Child(const QWidget &window, const char *name)
{
    return window.findChild<Widget *>(QLatin1String(name));
}

/// Checks that \a button looks as a new one with \a icon does.
inline void CheckIcon(Velmora::QcIconButton &button, const QString &icon)
{
    Velmora::QcIconButton expected(nullptr);
    expected.SetIconPath(icon);
    expected.setCheckable(button.isCheckable());
    expected.setChecked(button.isChecked());
    DrainEvents();
    QCOMPARE(Render(button), Render(expected));
    expected.SetIconPath(QStringLiteral(":/images/dock/no_such.svg"));
    QVERIFY(Render(button) != Render(expected));
}

/// The texts of its context, each in brackets.
class BracketTranslator : public QTranslator
{
public:
    explicit BracketTranslator(const char *context)
        : m_context(QLatin1String(context))
    {
        QCoreApplication::installTranslator(this);
    }

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char * /*disambiguation*/, int /*n*/) const override
    {
        return m_context == QLatin1String(context) ? QStringLiteral("[%1]").arg(QLatin1String(text)) : QString();
    }

private:
    QString m_context;
};

/// The texts of a window's or dialog's title row and its window title, for comparison.
inline QStringList TextsOf(const QWidget &window, const char *maxButton)
{
    QStringList texts = {window.windowTitle(), Child<Velmora::QcLabel>(window, "m_titleLabel")->text()};
    for (const char *name : {"m_minButton", maxButton, "m_closeButton"})
        texts.append(Child<QWidget>(window, name)->accessibleName());
    return texts;
}

/// Checks that the texts of a \a window made by its default constructor follow the language, and that those of its host stay.
template <typename Window>
void CheckLanguageChange(const char *context, const QString &windowTitle, const char *maxButton)
{
    const QStringList plain = {windowTitle, QStringLiteral("TextLabel"), QStringLiteral("Minimize"), QStringLiteral("Maximize"),
                               QStringLiteral("Close")};
    QStringList bracketed;
    for (const QString &text : plain)
        bracketed.append(QStringLiteral("[%1]").arg(text));

    Window ours;
    Window hosts;
    hosts.setWindowTitle(QStringLiteral("Post"));
    hosts.setTitle(QStringLiteral("Letters"));
    for (const char *name : {"m_minButton", maxButton, "m_closeButton"})
        Child<QWidget>(hosts, name)->setAccessibleName(QLatin1String(name));
    const QStringList own = TextsOf(hosts, maxButton);
    {
        const BracketTranslator translator(context);
        DrainEvents();
        QCOMPARE(TextsOf(ours, maxButton), bracketed);
        QCOMPARE(TextsOf(hosts, maxButton), own);
        const Window late;
        QCOMPARE(TextsOf(late, maxButton), bracketed);
    }
    DrainEvents();
    QCOMPARE(TextsOf(ours, maxButton), plain);
    QCOMPARE(TextsOf(hosts, maxButton), own);
}

/// Checks what window and dialog promise of their title row.
inline void CheckTitleRow(QWidget &window, const QMargins &margins, const char *maxButton)
{
    auto *frame = Child<Velmora::QcFrame>(window, "m_titleFrame");
    QVERIFY(frame);
    QCOMPARE(frame->height(), 40);
    QCOMPARE(frame->minimumHeight(), 40);
    QCOMPARE(frame->maximumHeight(), 40);
    QCOMPARE(frame->minimumWidth(), 0);
    QCOMPARE(frame->frameShape(), QFrame::NoFrame);
    QCOMPARE(frame->frameShadow(), QFrame::Raised);
    QLayout *row = frame->layout();
    QCOMPARE(row->objectName(), QStringLiteral("horizontalLayout"));
    QCOMPARE(row->contentsMargins(), margins);
    QCOMPARE(row->spacing(), 8);

    auto *title = Child<Velmora::QcLabel>(window, "m_titleLabel");
    QCOMPARE(title->text(), QStringLiteral("TextLabel"));
    QCOMPARE(title->font().pixelSize(), 14);
    QCOMPARE(row->itemAt(0)->widget(), title);
    QVERIFY(row->itemAt(1)->spacerItem());
    QCOMPARE(row->itemAt(1)->sizeHint(), QSize(405, 20));
    QCOMPARE(row->itemAt(1)->expandingDirections(), Qt::Horizontal);
    int index = 2;
    struct
    {
        const char *name;
        QString icon;
        QString spoken;
    } const buttons[] = {{"m_minButton", QStringLiteral(":/images/min.svg"), QStringLiteral("Minimize")},
                         {maxButton, QStringLiteral(":/images/max.svg"), QStringLiteral("Maximize")},
                         {"m_closeButton", QStringLiteral(":/images/close.svg"), QStringLiteral("Close")}};
    for (const auto &[name, icon, spoken] : buttons) {
        auto *button = Child<Velmora::QcIconButton>(window, name);
        QVERIFY2(button, name);
        CheckIcon(*button, icon);
        QCOMPARE(row->itemAt(index++)->widget(), button);
        QCOMPARE(button->size(), QSize(24, 24));
        QCOMPARE(button->text(), QString());
        QCOMPARE(button->accessibleName(), spoken);
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QVERIFY(!button->isDefault() && !button->autoDefault());
    }
    QCOMPARE(row->count(), 5);
}

/// Checks that a host may delete a \a Window in its signalClose, whatever closes it.
template <typename Window>
void CheckDeletionWhenItCloses()
{
    const std::function<void(Window &)> roads[] = {
        [](Window &window) { window.close(); },
        [](Window &window) { window.windowHandle()->close(); }, // as the desktop does
        [](Window &window) { QTest::mouseClick(Child<QWidget>(window, "m_closeButton"), Qt::LeftButton); },
    };
    for (const auto &close : roads) {
        QPointer<Window> window = new Window; // deleted by its own signal
        QObject::connect(window, &Window::signalClose, qApp, [&window] { delete window; });
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        close(*window);
        QVERIFY(!window);
        DrainEvents();
    }
}

} // namespace VelmoraTest
