#include "Kit.h"
#include "Page.h"
#include "Tables.h"

#include <Velmora/QcSecondaryButton.h>
#include <Velmora/QcStyleManager.h>
#include <Velmora/QcToastManager.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Gallery;
using Velmora::QcStyleManager;
using Velmora::QcToast;
using Velmora::QcToastManager;

namespace {

struct Kind
{
    const char *name;
    QcToast::Type type;
    const char *text;
};

constexpr Kind kKinds[] = {
    {"Information", QcToast::Information, "A new version is ready."},
    {"Success", QcToast::Success, "12 letters were sent."},
    {"Warning", QcToast::Warning, "The disk is almost full: 2 letters were kept in the outbox until there is room again."},
    {"Error", QcToast::Error, "The letter was not sent. <a href=\"retry\" style=\"color: %1\">Try again</a>"},
};

constexpr int kRepeated = 1;

/// \a text with its links in the table's colour: HTML has no tokens.
QString WithLinks(const QString &text)
{
    return text.contains(QLatin1String("%1")) ? text.arg(TokenColor(QStringLiteral("link/link")).name()) : text;
}

class ToastsPage : public PageWidget
{
public:
    ToastsPage()
    {
        AddInPlace();
        AddShown();
        AddSpecial();
    }

private:
    void AddInPlace()
    {
        Card *card =
            AddSection(QStringLiteral("Four types"), QStringLiteral("Held in place here; else they fade in, wait five seconds and go."));
        auto *grid = new QGridLayout;
        grid->setSpacing(2 * kGrid);
        for (int i = 0; i < 4; ++i) {
            auto *toast = new QcToast(nullptr);
            toast->setType(kKinds[i].type);
            const auto write = [toast, text = QString::fromLatin1(kKinds[i].text)] { toast->setText(WithLinks(text)); };
            write();
            connect(QcStyleManager::GetInstance(), &QcStyleManager::SignalColorChanged, toast, write);
            grid->addWidget(toast, i / 2, i % 2, Qt::AlignTop);
            toast->showToast(false);
        }
        grid->setColumnStretch(2, 1);
        card->Body()->addLayout(grid);
    }

    void AddShown()
    {
        Card *card = AddSection(QStringLiteral("On the window"),
                                QStringLiteral("At most three at a time: a fourth makes the oldest go, and the others glide up."));
        QHBoxLayout *row = card->AddRow();
        for (const Kind &kind : kKinds) {
            QcToast::Params params;
            params.type = kind.type;
            params.text = QLatin1String(kind.text);
            AddButton(row, QLatin1String(kind.name), params, false);
        }
        row->addStretch();
    }

    void AddSpecial()
    {
        Card *card =
            AddSection(QStringLiteral("Out of the ordinary"),
                       QStringLiteral("A pinned one stays at the head, a repeated one only stays longer, and one may be a window."));
        QHBoxLayout *row = card->AddRow();
        QcToast::Params pinned;
        pinned.type = QcToast::Warning;
        pinned.text = QStringLiteral("You are offline.");
        pinned.removable = false;
        pinned.duration = 10000;
        AddButton(row, QStringLiteral("Pinned"), pinned, false);
        QcToast::Params repeated;
        repeated.text = QStringLiteral("Copied. Press again: it stays longer.");
        repeated.id = kRepeated;
        AddButton(row, QStringLiteral("One by its id"), repeated, false);
        QcToast::Params window;
        window.text = QStringLiteral("A window of its own, which does not take the keyboard.");
        AddButton(row, QStringLiteral("A window"), window, true);
        row->addStretch();
    }

    void AddButton(QHBoxLayout *row, const QString &text, const QcToast::Params &params, bool topLevel)
    {
        auto *button = new Velmora::QcSecondaryButton;
        button->setText(text);
        button->setHorizontalMargin(2 * kGrid);
        connect(button, &QPushButton::clicked, this, [this, params, topLevel] {
            QcToast::Params shown = params;
            shown.text = WithLinks(params.text);
            QcToastManager::getInstance()->showToast(shown, window(), topLevel);
        });
        row->addWidget(button);
    }
};

const PageRegistrar registrar({QStringLiteral("toasts"), QStringLiteral("Feedback"), QStringLiteral("Toasts"),
                               QStringLiteral("QcToast and QcToastManager: short messages that come and go by themselves."), 510,
                               [] { return new ToastsPage; }});

} // namespace
