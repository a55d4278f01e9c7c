// What the sentences of the guide are tried with.
#pragma once

#include "../Check.h"

#include <Velmora/QcStyleManager.h>

#include <QColor>
#include <QCoreApplication>
#include <QFont>
#include <QImage>
#include <QString>
#include <QWidget>

#include <functional>

void CheckProgram();
void CheckLooks();
void CheckClasses();
void CheckButtons();
void CheckLabels();
void CheckFields();
void CheckForms();
void CheckRows();
void CheckWindows();
void CheckDialogs();
void CheckIcons();

inline void Drain()
{
    for (int turn = 0; turn < 5; ++turn)
        QCoreApplication::processEvents();
}

/// What \a widget looks like once everything that is due has happened.
inline QImage Shot(QWidget &widget)
{
    widget.window()->show();
    widget.show();
    Drain();
    return widget.grab().toImage();
}

/// Whether \a change leaves not one pixel of \a widget different.
inline bool Ignores(QWidget &widget, const std::function<void()> &change)
{
    const QImage before = Shot(widget);
    change();
    return Shot(widget) == before;
}

/// Switches to the built-in table of that name.
inline void UseTable(const char *name)
{
    Velmora::QcStyleManager::GetInstance()->SetColorFilePath(QStringLiteral(":/colors/%1.ini").arg(QLatin1String(name)));
    Drain();
}

inline QFont Large()
{
    QFont font;
    font.setPixelSize(30);
    return font;
}

inline QPalette Loud()
{
    QPalette palette;
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Base, QPalette::Text, QPalette::Button, QPalette::ButtonText})
        palette.setColor(role, Qt::green);
    return palette;
}
