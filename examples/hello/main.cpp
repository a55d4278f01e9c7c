#include <Velmora/Velmora.h>

#include <QVBoxLayout>

int main(int argc, char *argv[])
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_light.ini"));
    app.Initialize();

    Velmora::QcFrame window;
    window.setBackgroundColorParams(QStringLiteral("bg/bg_box"));
    auto *label = new Velmora::QcLabel(&window);
    label->setType(Velmora::QcLabel::Headline);
    label->setText(QStringLiteral("Hello"));
    auto *button = new Velmora::QcPrimaryButton(&window);
    button->setText(QStringLiteral("Switch to dark"));
    QObject::connect(button, &QPushButton::clicked, [] {
        Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/blue_dark.ini"));
    });
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(label);
    layout->addWidget(button);
    window.resize(280, 120);
    window.show();
    return app.exec();
}
