#pragma once

#include <QColor>
#include <QString>
#include <QVector>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace VelmoraTest {

/// A plain widget of Qt that shows a text.
using Maker = std::function<QWidget *(const QString &)>;

struct Specimen
{
    const char *name;
    Maker make;
};

/// Every way in which plain widgets show texts.
const QVector<Specimen> &PlainSpecimens();

/// How much a text stands out, by the pixel of it that does most from what is there without it.
double ContrastOfText(const Maker &make);

} // namespace VelmoraTest
