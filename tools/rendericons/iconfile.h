#pragma once

#include <QByteArray>
#include <QImage>
#include <QVector>

/** The bytes of a PNG file, as small as its compression allows. */
QByteArray PngFile(const QImage& image);

/** The bytes of a Windows icon file that holds each image, at most 256 pixels wide and high, as PNG. */
QByteArray IcoFile(const QVector<QImage>& images);
