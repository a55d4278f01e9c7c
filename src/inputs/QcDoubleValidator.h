#pragma once

#include <Velmora/VelmoraExport.h>

#include <QDoubleValidator>
#include <QString>

namespace Velmora {

/// Takes decimal numbers with or without thousands separators: `1234.5` and `1,234.5`, not `1,23.4`.
///
/// A blank text is acceptable, and so is a number out of range by more than a hundredth of its last place: the range counts at
/// the end of editing, not while somebody types. A lone minus stays as long as the range holds negative numbers, and fixup()
/// clears it.
///
/// The form is fixed, `,` and `.` and the digits 0 to 9 in every locale, while the value is that of QLocale(); see
/// QcLineEditFrame for what that means where the locale writes numbers in another way.
class VELMORA_EXPORT QcDoubleValidator : public QDoubleValidator
{
    Q_OBJECT

public:
    using QDoubleValidator::QDoubleValidator;

    QValidator::State validate(QString &input, int &pos) const override;
    void fixup(QString &input) const override;
};

} // namespace Velmora
