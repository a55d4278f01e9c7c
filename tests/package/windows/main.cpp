#include "LetterWindow.h"
#include "ask_over_veil.h"
#include "corner_grip.h"

#include "../Check.h"

#include <Velmora/QcApplication.h>
#include <Velmora/QcStyleManager.h>

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>

namespace {

void CheckClosing()
{
    LetterWindow window;
    int said = 0;
    QObject::connect(&window, &Velmora::QcWindow::signalClose, [&said] { ++said; });
    window.show();
    Check(!window.close() && window.isVisible() && said == 0, "an unsaved letter keeps its window open, which says nothing");
    window.setSaved(true);
    Check(window.close() && !window.isVisible() && said == 1, "a saved letter lets its window close");
}

void CheckGrip()
{
    Velmora::QcWindow window;
    auto *column = new QVBoxLayout(window.getContentFrame());
    column->addStretch();
    addGrip(column);
    window.show();
    const auto *grip = window.findChild<QSizeGrip *>();
    const QPoint end = grip->mapTo(&window, QPoint(grip->width(), grip->height()));
    Check(grip->isVisible() && end.x() > window.width() - 20 && end.y() > window.height() - 20, "the grip lies in the corner");
}

/// Does \a act on the next dialog once that has the keyboard.
void OnceAsked(QObject *owner, const std::function<void(Velmora::QcDialog &)> &act)
{
    auto *timer = new QTimer(owner);
    QObject::connect(timer, &QTimer::timeout, owner, [timer, act] {
        auto *dialog = qobject_cast<Velmora::QcDialog *>(QApplication::activeWindow());
        if (!dialog || !QApplication::focusWidget())
            return;
        timer->deleteLater();
        timer->stop();
        act(*dialog);
    });
    timer->start(5);
}

QAbstractButton *ButtonOf(const QWidget &dialog, const QString &text)
{
    const auto buttons = dialog.findChildren<QAbstractButton *>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&](const QAbstractButton *button) { return button->text() == text; });
    return found == buttons.end() ? nullptr : *found;
}

int Answer(const QStringList &answers, const std::function<void(Velmora::QcDialog &)> &act)
{
    Velmora::QcWindow window;
    window.show();
    OnceAsked(&window, act);
    return ask(&window, QStringLiteral("Leave?"), QStringLiteral("Three letters have changed."), answers);
}

void CheckAnswers()
{
    const QStringList three{QStringLiteral("Save"), QStringLiteral("Discard"), QStringLiteral("Cancel")};
    for (int i = 0; i < three.size(); ++i)
        Check(Answer(three, [&](QWidget &dialog) { ButtonOf(dialog, three.at(i))->click(); }) == i, "the answer is what was pressed");
    const auto press = [](Qt::Key key) { return [key](QWidget &) { QTest::keyClick(QApplication::focusWidget(), key); }; };
    Check(Answer(three, press(Qt::Key_Return)) == 0, "Enter gives the first");
    Check(Answer(three, press(Qt::Key_Space)) == 0, "which has the keyboard");
    Check(Answer(three, press(Qt::Key_Escape)) == 2, "Escape gives the last");
    Check(Answer(three, [](QWidget &dialog) { dialog.close(); }) == 2, "and so does the title row");
    Check(Answer(three,
                 [&](QWidget &dialog) {
                     QList<int> places;
                     for (const QString &text : three)
                         places << ButtonOf(dialog, text)->mapTo(&dialog, QPoint()).x();
                     Check(std::is_sorted(places.begin(), places.end()), "buttons stand in the order of the answers");
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
                     QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
                 })
              == 1,
          "Enter gives the one that Tab has gone to");
    Check(Answer({QStringLiteral("Stay"), QStringLiteral("Leave")}, press(Qt::Key_Escape)) == 1, "of two, too");
    Check(Answer({QStringLiteral("OK")},
                 [](QWidget &dialog) {
                     Check(!dialog.findChild<QWidget *>(QStringLiteral("m_cancelButton"))->isVisible(), "one answer has one button");
                     dialog.close();
                 })
              == 0,
          "and is the only one");
}

/// The height of a question's text, all of which is seen in the middle of the window.
int CheckText(const QString &question)
{
    Velmora::QcWindow window;
    window.setGeometry(200, 100, 300, 200);
    window.show();
    int height = 0;
    OnceAsked(&window, [&](Velmora::QcDialog &dialog) {
        const auto *text = dialog.getContentFrame()->findChild<QLabel *>();
        height = text->height();
        Check(text->parentWidget()->rect().contains(text->geometry()), "all of the text is seen");
        Check(text->height() >= text->heightForWidth(text->width()) && dialog.height() < height + 160, "and no more room than it needs");
        const QPoint off = dialog.geometry().center() - window.geometry().center();
        Check(qAbs(off.x()) < 2 && qAbs(off.y()) < 2, "in the middle of the window");
        Check(dialog.width() == 400, "in lines of a moderate length");
        dialog.close();
    });
    ask(&window, QStringLiteral("Leave?"), question, {QStringLiteral("OK")});
    return height;
}

void CheckTexts()
{
    const int line = CheckText(QStringLiteral("Leave?"));
    Check(line > 10 && line < 24, "a short question is a line");
    Check(CheckText(QStringLiteral("Three letters have changed. ").repeated(20)) > 6 * line, "a long one wraps");
    Check(CheckText(QStringLiteral("One.\nTwo.\nThree.")) > 2 * line, "lines stay lines");
    Check(CheckText(QStringLiteral("<br><br><br>")) < 2 * line, "tags are characters");

    Velmora::QcWindow window;
    window.show();
    OnceAsked(&window, [](Velmora::QcDialog &dialog) {
        Check(dialog.width() == 400, "a long title is elided");
        const auto buttons = dialog.findChild<QWidget *>(QStringLiteral("m_bottomFrame"))->findChildren<QPushButton *>();
        for (const QPushButton *button : buttons)
            Check(button->width() >= qMax(80, button->sizeHint().width()), "a long answer is not");
        dialog.close();
    });
    const QString many = QStringLiteral("many words in a row");
    ask(&window, many.repeated(10), many, {many, many, many});
}

void CheckVeil()
{
    Velmora::QcWindow window;
    window.show();
    bool veiled = false;
    bool modal = false;
    OnceAsked(&window, [&](Velmora::QcDialog &dialog) {
        const auto *veil = window.findChild<Velmora::QcMaskFrame *>();
        veiled = veil && veil->isVisible() && veil->geometry() == window.rect();
        modal = dialog.isModal();
        dialog.accept();
    });
    const QStringList answers{QStringLiteral("Leave"), QStringLiteral("Stay")};
    Check(askOverVeil(&window, QStringLiteral("Leave?"), QStringLiteral("Three letters have changed."), answers) == 0, "it asks");
    Check(veiled && modal, "a modal dialog over a veil asks");
    Check(!window.findChild<Velmora::QcMaskFrame *>(), "the veil goes with the question");
}

} // namespace

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();
    CheckClosing();
    CheckGrip();
    CheckAnswers();
    CheckTexts();
    CheckVeil();
    return failures;
}
