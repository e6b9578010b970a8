// Build-time renderer of the editor's icons.
//   iconrender render SIZE INPUT.svg OUTPUT.png   one image of SIZE pixels
//   iconrender render SIZE INPUT.svg OUTPUT.ico   16, 24 and 32 pixel images (SIZE ignored)
//   iconrender sheet [--zoom N] OUTPUT.png FILE...  contact sheet of rendered files
#include "contactsheet.h"
#include "icofile.h"

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

constexpr int icoSizes[] = {16, 24, 32};

int fail(const QString &message)
{
    QTextStream(stderr) << "iconrender: " << message << '\n';
    return 1;
}

QImage render(QSvgRenderer &renderer, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    return image.convertToFormat(QImage::Format_ARGB32);
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()
           && file.commit();
}

int renderIcon(const QStringList &arguments)
{
    bool sizeOk = false;
    const int size = arguments.value(0).toInt(&sizeOk);
    const QString input = arguments.value(1);
    const QString output = arguments.value(2);
    if (!sizeOk || size <= 0 || output.isEmpty())
        return fail(QStringLiteral("usage: render SIZE INPUT.svg OUTPUT"));
    QSvgRenderer renderer(input);
    if (!renderer.isValid())
        return fail(QStringLiteral("cannot read %1").arg(input));

    if (output.endsWith(QLatin1String(".ico"))) {
        QVector<QImage> images;
        for (int icoSize : icoSizes)
            images.append(render(renderer, icoSize));
        if (!writeFile(output, icoFile(images)))
            return fail(QStringLiteral("cannot write %1").arg(output));
        return 0;
    }
    if (!render(renderer, size).save(output, "png"))
        return fail(QStringLiteral("cannot write %1").arg(output));
    return 0;
}

int drawSheet(QStringList arguments)
{
    int zoom = 1;
    if (arguments.value(0) == QLatin1String("--zoom")) {
        zoom = qMax(1, arguments.value(1).toInt());
        arguments = arguments.mid(2);
    }
    if (arguments.size() < 2)
        return fail(QStringLiteral("usage: sheet [--zoom N] OUTPUT.png FILE..."));
    QImage sheet = contactSheet(arguments.mid(1));
    if (zoom > 1)
        sheet = sheet.scaled(sheet.size() * zoom, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    if (!sheet.save(arguments.at(0), "png"))
        return fail(QStringLiteral("cannot write %1").arg(arguments.at(0)));
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    // Runs during the build, where there is no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments().mid(1);
    if (arguments.value(0) == QLatin1String("render"))
        return renderIcon(arguments.mid(1));
    if (arguments.value(0) == QLatin1String("sheet"))
        return drawSheet(arguments.mid(1));
    return fail(QStringLiteral("usage: render SIZE INPUT.svg OUTPUT | sheet [--zoom N] OUTPUT.png FILE..."));
}
