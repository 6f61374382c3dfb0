// The place of the main window, stored in twips.
#pragma once

#include "shell/settings.h"

class QWidget;

/// Places the window as stored, but always where a screen is.
void PlaceWindow(QWidget& window, const WindowSize& size);
/// Stores the place.
void StorePlace(const QWidget& window, WindowSize& size);
