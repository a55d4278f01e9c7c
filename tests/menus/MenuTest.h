#pragma once

#include "buttons/ButtonLooks.h"
#include "support/Pixels.h"
#include "support/TestMain.h"

#include <Velmora/ImageParams.h>
#include <Velmora/QcMenu.h>

#include <QFont>
#include <QFontMetrics>
#include <QPainter>

#include <memory>

namespace VelmoraTest {

/// The base of a menu's tests: one menu, fresh for each test function, with the cursor away.
class MenuTest : public TestCase
{
protected:
    void SetUp() override
    {
        MoveCursorAway();
        m_menu = std::make_unique<Velmora::QcMenu>();
    }

    void TearDown() override
    {
        m_menu.reset();
        UseTable(Table::Light);
    }

    static void AddTables()
    {
        QTest::addColumn<Table>("table");
        QTest::newRow("light") << Table::Light;
        QTest::newRow("dark") << Table::Dark;
    }

    void Open()
    {
        m_menu->popup(QPoint(0, 0));
        DrainEvents();
    }

    QImage Picture() { return Render(*m_menu); }

    /// The rectangle that an item has inside of the outline.
    QRect Place(QAction *action) const
    {
        const QRect place = m_menu->actionGeometry(action);
        return place.intersected(QRect(1, place.top(), m_menu->width() - 2, place.height()));
    }

    /// The font that the items have, whatever that of the menu is.
    static QFont ItemFont()
    {
        QFont font;
        font.setPixelSize(12);
        font.setFamilies({QStringLiteral("Open Sans Medium"), QStringLiteral("Microsoft YaHei UI")});
        return font;
    }

    static int Advance(const QString &text) { return QFontMetrics(ItemFont()).horizontalAdvance(text); }

    /// Whether \a paint over \a background, and nothing else, stands in \a place of the open menu. The outline reaches two pixels far into
    /// an item at rest, at both ends, and is left out.
    template <typename Paint>
    bool Shows(const QRect &place, const QColor &background, const Paint &paint)
    {
        QImage expected = Canvas(*m_menu, background);
        QPainter painter(&expected);
        paint(painter);
        painter.end();
        const QRect inside = place & m_menu->rect().adjusted(3, 3, -3, -3);
        return Part(Picture(), inside) == Part(expected, inside);
    }

    bool ShowsIcon(const QRect &place, const QString &path, const QString &code, const QColor &background)
    {
        return Shows(place, background, [&](QPainter &painter) {
            Velmora::ImageParams params;
            params.path = path;
            params.color = Velmora::ColorParams(code);
            PaintCrisply(painter, place, params);
        });
    }

    bool IsBlank(const QRect &place, const QColor &background)
    {
        return Shows(place, background, [](QPainter & /*painter*/) {});
    }

    /// \a text as it stands in \a place in the colour \a code.
    bool ShowsText(const QRect &place, Qt::Alignment alignment, const QString &text, const QColor &color, const QColor &background)
    {
        return Shows(place, background, [&](QPainter &painter) {
            painter.setFont(ItemFont());
            painter.setPen(color);
            painter.drawText(place, int(alignment | Qt::AlignAbsolute), text);
        });
    }

    std::unique_ptr<Velmora::QcMenu> m_menu;
};

inline QColor Panel(Table table)
{
    return TokenOf(table, QStringLiteral("bg/bg_float"));
}

/// The square for an icon at the leading edge of \a item.
inline QRect IconPlace(const QRect &item)
{
    return QRect(item.left(), item.top() + (item.height() - 24) / 2, 24, 24);
}

} // namespace VelmoraTest

Q_DECLARE_METATYPE(VelmoraTest::Table)
