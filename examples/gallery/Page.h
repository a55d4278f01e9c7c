#pragma once

#include <QString>
#include <QVector>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Gallery {

/// What the window needs to know of a page before it is made.
struct PageInfo
{
    QString id;     ///< names the page on the command line and its pictures: lower case, no blanks
    QString family; ///< the heading under which the list shows it
    QString title;
    QString summary; ///< one sentence under the title
    int order;       ///< place in the list; families stand in the order of their first page
    std::function<QWidget *()> factory;
};

/// Registers a page while the program starts. One static object of it in a page's file is all that the page needs:
///
///     const PageRegistrar registrar({QStringLiteral("frames"), ..., [] { return new FramesPage; }});
class PageRegistrar
{
public:
    explicit PageRegistrar(const PageInfo &page);
};

/// All pages in their order.
QVector<PageInfo> Pages();

} // namespace Gallery
