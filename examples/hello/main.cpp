#include <Velmora/Velmora.h>

#include <QVBoxLayout>

int main(int argc, char **argv)
{
    Velmora::QcApplication app(argc, argv);
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(":/colors/blue_light.ini");
    app.Initialize();
    Velmora::SetKeyboardCuesEnabled(true);
    Velmora::SetPlainWidgetsFollowTable(true);

    Velmora::QcFrame window;
    window.setBackgroundColorParams("bg/bg_box");
    auto *button = new Velmora::QcPrimaryButton;
    button->setText("Go dark");
    QObject::connect(button, &QPushButton::clicked,
                     [] { Velmora::QcStyleManager::GetInstance()->SetColorFilePath(":/colors/blue_dark.ini"); });
    auto *layout = new QVBoxLayout(&window);
    layout->addWidget(button);
    window.resize(240, 120);
    window.show();

    return app.exec();
}
