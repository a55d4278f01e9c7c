#include "gallery/GalleryTestCase.h"
#include "support/TestMain.h"

#include "GalleryWindow.h"
#include "Page.h"

#include <Velmora/PlainWidgets.h>

#include <QApplication>
#include <QPair>
#include <QPointer>
#include <QVector>

#include <memory>

using namespace Gallery;
using namespace VelmoraTest;

namespace {

bool IsOfKit(const QWidget &widget)
{
    for (const QMetaObject *one = widget.metaObject(); one; one = one->superClass()) {
        if (qstrncmp(one->className(), "Velmora::", 9) == 0)
            return true;
    }
    return false;
}

/// The widget alone, on what it is filled with if that is seen.
QImage Picture(QWidget &widget)
{
    QImage image(widget.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const bool isGroundSeen = !widget.isWindow() && widget.autoFillBackground();
    widget.render(&image, QPoint(), QRegion(), isGroundSeen ? QWidget::DrawWindowBackground : QWidget::RenderFlags());
    return image;
}

using Pictures = QVector<QPair<QPointer<QWidget>, QImage>>;

Pictures PicturesOfKit()
{
    Pictures pictures;
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->isVisible() && IsOfKit(*widget))
            pictures.append({widget, Picture(*widget)});
    }
    return pictures;
}

} // namespace

/// The kit's controls beside plain widgets that follow the table.
class TestGalleryPlainWidgets : public GalleryTestCase
{
    Q_OBJECT

    void TearDown() override { Velmora::SetPlainWidgetsFollowTable(false); }

    /// A window with \a page, which nothing moves.
    static std::unique_ptr<GalleryWindow> ShowStill(const QString &page)
    {
        auto window = std::make_unique<GalleryWindow>(Gallery::Table::Dark);
        window->SetTable(Gallery::Table::Dark);
        window->ShowPage(page);
        window->show();
        DrainEvents();
        if (QWidget *focus = QApplication::focusWidget())
            focus->clearFocus();                 // a cursor that blinks
        qApp->setStyleSheet(qApp->styleSheet()); // styled anew, views lay out their items anew too
        DrainEvents();
        return window;
    }

private Q_SLOTS:
    void no_control_of_the_kit_changes_by_a_pixel_data()
    {
        QTest::addColumn<QString>("page");
        const QVector<PageInfo> pages = Pages();
        for (const PageInfo &page : pages)
            QTest::addRow("%s", qPrintable(page.id)) << page.id;
    }

    void no_control_of_the_kit_changes_by_a_pixel()
    {
        QFETCH(QString, page);
        const auto window = ShowStill(page);
        const Pictures before = PicturesOfKit();
        QVERIFY(before.size() > 10);
        const QPalette palette = QApplication::palette();
        for (const bool isOn : {true, false}) {
            Velmora::SetPlainWidgetsFollowTable(isOn);
            DrainEvents();
            QCOMPARE(QApplication::palette() == palette, !isOn);
            for (const auto &one : before) {
                const QPointer<QWidget> &widget = one.first;
                if (widget) {
                    QVERIFY2(Picture(*widget) == one.second,
                             qPrintable(QStringLiteral("%1 \"%2\"").arg(widget->metaObject()->className(), widget->objectName())));
                }
            }
        }
    }

    void a_page_made_meanwhile_has_the_same_controls_data() { no_control_of_the_kit_changes_by_a_pixel_data(); }

    void a_page_made_meanwhile_has_the_same_controls()
    {
        QFETCH(QString, page);
        QVector<QPair<QByteArray, QImage>> pictures[2];
        for (const bool isOn : {false, true}) {
            Velmora::SetPlainWidgetsFollowTable(isOn);
            const auto window = ShowStill(page);
            for (QWidget *widget : window->findChildren<QWidget *>()) {
                if (widget->isVisible() && IsOfKit(*widget))
                    pictures[isOn].append({widget->metaObject()->className() + widget->objectName().toUtf8(), Picture(*widget)});
            }
        }
        QVERIFY(pictures[false].size() > 10);
        QCOMPARE(pictures[true].size(), pictures[false].size());
        for (int i = 0; i < pictures[false].size(); ++i)
            QVERIFY2(pictures[true].at(i) == pictures[false].at(i), pictures[false].at(i).first.constData());
    }
};

VELMORA_TEST_MAIN(TestGalleryPlainWidgets)
#include "tst_GalleryPlainWidgets.moc"
