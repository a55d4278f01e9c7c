#pragma once

#include <Velmora/XlsxTemplate.h>

#include <QCoreApplication>

namespace Velmora {

/// Why an operation on a template failed; true if it did. The text is for a user: what is wrong, and where.
struct TemplateFault
{
    XlsxTemplate::Error error = XlsxTemplate::Error::None;
    QString text;

    explicit operator bool() const { return error != XlsxTemplate::Error::None; }
};

} // namespace Velmora
