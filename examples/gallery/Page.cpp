#include "Page.h"

#include <algorithm>

namespace Gallery {

namespace {

// Inside a function: the registrars run before main, in no known order.
QVector<PageInfo> &Registry()
{
    static QVector<PageInfo> pages;
    return pages;
}

} // namespace

PageRegistrar::PageRegistrar(const PageInfo &page)
{
    Registry().append(page);
}

QVector<PageInfo> Pages()
{
    QVector<PageInfo> pages = Registry();
    std::sort(pages.begin(), pages.end(),
              [](const PageInfo &a, const PageInfo &b) { return a.order != b.order ? a.order < b.order : a.id < b.id; });
    return pages;
}

} // namespace Gallery
