// Renders SVG drawings to PNG files at build time:
//   quorvanta-svgtopng OUTDIR WIDTHxHEIGHT drawing.svg [drawing.svg ...]
// Each drawing becomes OUTDIR/<name>.png, scaled to fill the given size.
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QGuiApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    QTextStream err(stderr);
    if (args.size() < 4) {
        err << "usage: quorvanta-svgtopng OUTDIR WIDTHxHEIGHT drawing.svg...\n";
        return 2;
    }
    const QStringList size = args.at(2).split(QLatin1Char('x'));
    const int width = size.value(0).toInt();
    const int height = size.value(1).toInt();
    if (width <= 0 || height <= 0) {
        err << "bad size " << args.at(2) << '\n';
        return 2;
    }
    for (int i = 3; i < args.size(); ++i) {
        QSvgRenderer renderer(args.at(i));
        if (!renderer.isValid()) {
            err << "cannot read " << args.at(i) << '\n';
            return 1;
        }
        QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        renderer.render(&painter);
        painter.end();
        const QString out =
            args.at(1) + QLatin1Char('/') + QFileInfo(args.at(i)).completeBaseName() + QStringLiteral(".png");
        if (!image.save(out, "PNG")) {
            err << "cannot write " << out << '\n';
            return 1;
        }
    }
    return 0;
}
