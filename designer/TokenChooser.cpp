#include "TokenChooser.h"

#include "Tables.h"

#include <Velmora/QcStyleManager.h>

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Velmora;

namespace VelmoraDesigner {

namespace {

constexpr int kSwatchSize = 20;

/// Half of it on white, half on black: many colours are translucent.
QIcon SwatchOf(const QString &code)
{
    QPixmap swatch(kSwatchSize, kSwatchSize);
    swatch.fill(Qt::white);
    QPainter painter(&swatch);
    painter.fillRect(0, kSwatchSize / 2, kSwatchSize, kSwatchSize / 2, Qt::black);
    painter.fillRect(swatch.rect(), QcStyleManager::GetInstance()->GetColor(code));
    painter.setPen(Qt::gray);
    painter.drawRect(0, 0, kSwatchSize - 1, kSwatchSize - 1);
    QIcon icon(swatch);
    icon.addPixmap(swatch, QIcon::Selected); // which Qt would tint
    return icon;
}

} // namespace

TokenChooser::TokenChooser(const QString &code, QWidget *parent)
    : QDialog(parent)
    , m_search(new QLineEdit(this))
    , m_tokens(new QListWidget(this))
    , m_code(new QLineEdit(code, this))
{
    m_search->setObjectName(QStringLiteral("search"));
    m_search->setPlaceholderText(QCoreApplication::translate("VelmoraDesigner", "Search"));
    m_search->setClearButtonEnabled(true);
    m_tokens->setObjectName(QStringLiteral("tokens"));
    m_tokens->setIconSize(QSize(kSwatchSize, kSwatchSize));
    m_tokens->setUniformItemSizes(true);
    m_code->setObjectName(QStringLiteral("code"));
    m_code->setToolTip(QCoreApplication::translate("VelmoraDesigner",
                                                   "A token, #RRGGBB, a colour's name, or one of them with an alpha: ${brand/brand, 0.5}"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    auto *column = new QVBoxLayout(this);
    for (QWidget *widget : {static_cast<QWidget *>(m_search), static_cast<QWidget *>(m_tokens), static_cast<QWidget *>(m_code),
                            static_cast<QWidget *>(buttons)})
        column->addWidget(widget);
    resize(420, 520);

    Fill();
    Mark(code);
    connect(m_search, &QLineEdit::textChanged, this, &TokenChooser::ShowMatching);
    connect(new QShortcut(Qt::Key_Down, m_search, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated, this,
            &TokenChooser::GoToList);
    connect(m_tokens, &QListWidget::currentTextChanged, m_code, &QLineEdit::setText);
    connect(m_tokens, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

QString TokenChooser::Code() const
{
    return m_code->text().trimmed();
}

void TokenChooser::Fill()
{
    const QList<Token> tokens = TokensOfChosenTable();
    for (const Token &token : tokens) {
        auto *item = new QListWidgetItem(SwatchOf(token.code), token.code, m_tokens);
        item->setToolTip(token.use);
    }
}

/// By name and by use, so that "toolbar" finds what a table says of it.
void TokenChooser::ShowMatching(const QString &words)
{
    for (int row = 0; row < m_tokens->count(); ++row) {
        QListWidgetItem *item = m_tokens->item(row);
        const QString text = item->text() + QLatin1Char(' ') + item->toolTip();
        item->setHidden(!text.contains(words.trimmed(), Qt::CaseInsensitive));
    }
}

/// To the first token that is shown, unless the marked one is.
void TokenChooser::GoToList()
{
    m_tokens->setFocus();
    if (m_tokens->currentItem() && !m_tokens->currentItem()->isHidden())
        return;
    for (int row = 0; row < m_tokens->count(); ++row) {
        if (!m_tokens->item(row)->isHidden())
            return m_tokens->setCurrentRow(row);
    }
}

void TokenChooser::Mark(const QString &code)
{
    const QList<QListWidgetItem *> found = m_tokens->findItems(ColorParams(code).code, Qt::MatchExactly);
    if (!found.isEmpty())
        m_tokens->setCurrentItem(found.constFirst());
}

} // namespace VelmoraDesigner
