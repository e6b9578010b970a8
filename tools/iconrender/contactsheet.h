#pragma once

class QImage;
class QStringList;

// All given icon files, one row each, at 16, 24 and 32 pixels on a light and
// on a dark background, plus the disabled form at 24 pixels, as the editor's
// tool bars would draw them.
QImage contactSheet(const QStringList &files);
