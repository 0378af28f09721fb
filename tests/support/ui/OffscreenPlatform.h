#pragma once

#include <QByteArray>
#include <QSize>
#include <QTemporaryDir>

// The offscreen platform with one screen of so many pixels, counted before the scale, for QT_QPA_PLATFORM. What
// describes the screen is written into the directory; empty when it could not be.
QByteArray platformWithScreen(const QSize& size, const QTemporaryDir& directory);
