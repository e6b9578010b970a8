#include "contactsheet.h"

#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QStringList>

#include <iterator>

namespace {

constexpr int sizes[] = {16, 24, 32};
constexpr int cell = 40;
constexpr int nameWidth = 200;
const QColor lightBackground(0xf5, 0xf5, 0xf5);
const QColor darkBackground(0x2a, 0x2e, 0x32);

void drawCell(QPainter &painter, const QRect &rect, const QColor &background, const QPixmap &pixmap)
{
    painter.fillRect(rect, background);
    painter.drawPixmap(rect.x() + (rect.width() - pixmap.width()) / 2,
                       rect.y() + (rect.height() - pixmap.height()) / 2, pixmap);
}

} // namespace

QImage contactSheet(const QStringList &files)
{
    const int columns = 2 * int(std::size(sizes)) + 1;
    QImage sheet(nameWidth + columns * cell, files.size() * cell, QImage::Format_ARGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int row = 0; row < files.size(); ++row) {
        const QIcon icon(files.at(row));
        const int y = row * cell;
        painter.setPen(Qt::black);
        painter.drawText(QRect(4, y, nameWidth - 8, cell), Qt::AlignVCenter | Qt::AlignLeft,
                         QFileInfo(files.at(row)).fileName());
        int x = nameWidth;
        for (const QColor &background : {lightBackground, darkBackground}) {
            for (int size : sizes) {
                drawCell(painter, QRect(x, y, cell, cell), background, icon.pixmap(size, size));
                x += cell;
            }
        }
        drawCell(painter, QRect(x, y, cell, cell), lightBackground, icon.pixmap(24, 24, QIcon::Disabled));
    }
    return sheet;
}
