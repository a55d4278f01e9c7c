#include <Velmora/FileAndDesktop.h>
#include <Velmora/QcProgressDialog.h>
#include <Velmora/QcStyleManager.h>

#include "core/LiesIn_p.h"
#include "core/OwnText_p.h"
#include "feedback/ParentWatch_p.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <cmath>

namespace Velmora {

namespace {

constexpr QSize kSize(357, 87);
constexpr int kBarHeight = 8;

} // namespace

struct ProgressTexts
{
    OwnText tip;
    OwnText name;
    OwnText barName;
    ParentWatch parent;
};

QcProgressDialog *QcProgressDialog::getInstance()
{
    static QcProgressDialog *const instance = new QcProgressDialog(nullptr); // never deleted: widgets cannot outlive the application
    return instance;
}

QcProgressDialog::QcProgressDialog(QWidget *parent)
    : QDialog(parent)
    , m_texts(std::make_unique<ProgressTexts>())
{
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    setFixedSize(kSize);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(19, 20, 14, 13);
    column->setSpacing(4);

    auto *frame = new QFrame(this);
    auto *row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(7);
    m_progressBar = new QProgressBar(frame);
    m_progressBar->setFixedHeight(kBarHeight);
    m_progressBar->setTextVisible(false);
    row->addWidget(m_progressBar);
    m_progressLabel = new QLabel(frame);
    m_progressLabel->setObjectName(QStringLiteral("m_progressLabel"));
    row->addWidget(m_progressLabel);

    m_tipLabel = new QLabel(this);
    m_tipLabel->setObjectName(QStringLiteral("m_tipLabel"));
    m_tipLabel->setAlignment(Qt::AlignHCenter);
    column->addWidget(frame);
    column->addWidget(m_tipLabel);

    // At once too, so that it has its look also where nobody started the theme engine.
    const QString path = QStringLiteral(":/qss/ProgressDialog.qss");
    setStyleSheet(QcStyleManager::GetInstance()->ReplaceStyleSheetColorCodes(GetFileContent(path)));
    QcStyleManager::GetInstance()->RegisterQss(this, path);
    setRange(0, 100);
    setValue(0);
    PutTipIn();
}

QcProgressDialog::~QcProgressDialog() = default;

// --- Texts ---

void QcProgressDialog::setText(const QString &text)
{
    m_tipLabel->setText(text);
    NameByTip();
}

void QcProgressDialog::PutTipIn()
{
    m_texts->tip.PutInto<QLabel>(*m_tipLabel, &QLabel::text, &QLabel::setText, tr("LoadingMsg"));
    NameByTip();
}

void QcProgressDialog::NameByTip()
{
    const QString tip = m_tipLabel->text();
    m_texts->name.PutInto<QWidget>(*this, &QWidget::accessibleName, &QWidget::setAccessibleName, tip);
    m_texts->barName.PutInto<QWidget>(*m_progressBar, &QWidget::accessibleName, &QWidget::setAccessibleName, tip);
}

// --- Progress ---

void QcProgressDialog::setRange(int minimum, int maximum)
{
    m_progressBar->setRange(minimum, maximum);
    updateProgressText();
}

void QcProgressDialog::setValue(int value)
{
    m_progressBar->setValue(value);
    updateProgressText();
}

int QcProgressDialog::value() const
{
    return m_progressBar->value();
}

int QcProgressDialog::totalProgressCount() const
{
    return m_progressBar->maximum();
}

void QcProgressDialog::clear()
{
    setValue(0);
    setText(QString());
}

void QcProgressDialog::updateProgressText()
{
    const float percent = float(value()) / float(totalProgressCount()) * 100.0F;
    const qint64 whole = std::isfinite(percent) ? qint64(percent) : 0; // a value of the greatest ints leaves those of 32 bits
    m_progressLabel->setText(QStringLiteral("%1%").arg(whole));
}

// --- Parents ---

void QcProgressDialog::setParent(QWidget *parent)
{
    if (parent != parentWidget() && !LiesIn(parent, this)) // Qt would never come back from a circle
        QDialog::setParent(parent, windowFlags());         // in one step, so that it never lies in its parent
}

void QcProgressDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        PutTipIn();
    else if (event->type() == QEvent::ParentChange)
        m_texts->parent.Follow(*this, [this] { setParent(nullptr); }); // through whichever call it got its parent
}

} // namespace Velmora
