#pragma once

#include "support/Pixels.h"
#include "support/Tokens.h"

#include <Velmora/QcFrame.h>
#include <Velmora/QcIconButton.h>
#include <Velmora/QcLabel.h>

#include <QLayout>
#include <QTest>
#include <QWidget>

namespace VelmoraTest {

template <typename Widget>
Widget *Child(const QWidget &window, const char *name)
{
    return window.findChild<Widget *>(QLatin1String(name));
}

/// Checks what window and dialog promise of their title row.
inline void CheckTitleRow(QWidget &window, const QMargins &margins, const char *maxButton)
{
    auto *frame = Child<Velmora::QcFrame>(window, "m_titleFrame");
    QVERIFY(frame);
    QCOMPARE(frame->height(), 40);
    QCOMPARE(frame->minimumHeight(), 40);
    QCOMPARE(frame->maximumHeight(), 40);
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
    for (const char *name : {"m_minButton", maxButton, "m_closeButton"}) {
        auto *button = Child<Velmora::QcIconButton>(window, name);
        QVERIFY2(button, name);
        QCOMPARE(row->itemAt(index++)->widget(), button);
        QCOMPARE(button->size(), QSize(24, 24));
        QCOMPARE(button->text(), QString());
        QVERIFY2(!button->accessibleName().isEmpty(), name);
        QCOMPARE(button->focusPolicy(), Qt::NoFocus);
        QVERIFY(!button->isDefault() && !button->autoDefault());
    }
    QCOMPARE(row->count(), 5);
}

} // namespace VelmoraTest
