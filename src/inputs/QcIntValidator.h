#pragma once

#include <Velmora/VelmoraExport.h>

#include <QIntValidator>
#include <QString>

namespace Velmora {

/// Takes whole numbers with or without thousands separators: `1234` and `1,234`, not `1,23`.
///
/// A blank text is acceptable, and so is a number out of range: the range counts at the end of editing, not while somebody
/// types. A lone minus stays as long as the range holds negative numbers, and fixup() clears it.
///
/// The form is fixed, `,` and the digits 0 to 9 in every locale, while the value is that of QLocale(). Where the locale
/// groups in another way, the two do not meet: in a German one `1.234` is refused for its form, and `1,000` is no number,
/// which counts as 0.
class VELMORA_EXPORT QcIntValidator : public QIntValidator
{
    Q_OBJECT

public:
    using QIntValidator::QIntValidator;

    QValidator::State validate(QString &input, int &pos) const override;
    void fixup(QString &input) const override;
};

} // namespace Velmora
