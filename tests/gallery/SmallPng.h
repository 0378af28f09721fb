#pragma once

#include <QImage>
#include <QString>

// Writes a picture of 24 bits a pixel as PNG, a quarter smaller than Qt does: the repository keeps all of them.
bool saveSmallPng(const QImage& picture, const QString& path);
