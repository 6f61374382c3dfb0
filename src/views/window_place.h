// Where the main window stands, as it is stored in twips.
#pragma once

#include "shell/settings.h"

class QWidget;

/// Places the window as stored, but always where a screen is.
void PlaceWindow(QWidget& window, const WindowSize& size);
/// Notes the place.
void StorePlace(const QWidget& window, WindowSize& size);
