#pragma once

#include <QVector>

class QByteArray;
class QImage;

// One .ico file holding every given image. Qt's own writer stores a single
// image per file; this joins several of its files into one directory.
QByteArray icoFile(const QVector<QImage> &images);
