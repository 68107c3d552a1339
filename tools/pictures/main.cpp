// SPDX-License-Identifier: MIT
//
// Renders every surface in its states, from sample data, into a folder of PNG files:
//     screenshots [folder] [--scale 2]
// Each picture has a name of its own, then the look, then the scale unless that is 1.
#include "pictures/Picture.h"
#include "pictures/Stage.h"
#include "views/style/Accessibility.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

using namespace Qt::StringLiterals;

using namespace trovell;
using namespace trovell::screenshots;

namespace {

struct Options {
    QString folder;
    double scale = 1;
};

Options parse(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QCommandLineParser parser;
    parser.addPositionalArgument(u"folder"_s, u"Where the pictures go."_s);
    parser.addOption({u"scale"_s, u"Device pixels per point."_s, u"factor"_s, u"1"_s});
    if (!parser.parse(arguments))
        qFatal("%s", qPrintable(parser.errorText()));
    const double scale = parser.value(u"scale"_s).toDouble();
    if (scale < 1 || scale > 4)
        qFatal("the scale is a number from 1 to 4");
    return {parser.positionalArguments().value(0, u"screenshots"_s), scale};
}

/// A screen in memory that no sheet is too large for. Before the application.
void describeScreen(const QString& file, double scale)
{
    const QJsonObject screen{{u"name"_s, u"Memory"_s},
                             {u"x"_s, 0},
                             {u"y"_s, 0},
                             {u"width"_s, 1600 * scale},
                             {u"height"_s, 1000 * scale},
                             {u"logicalDpi"_s, 96},
                             {u"logicalBaseDpi"_s, 96},
                             {u"dpr"_s, 1}};
    QFile description(file);
    if (!description.open(QFile::WriteOnly))
        qFatal("no screen can be described");
    description.write(QJsonDocument(QJsonObject{{u"screens"_s, QJsonArray{screen}}}).toJson());
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(file));
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
}

class Album {
public:
    explicit Album(Options options) : m_options(std::move(options)) {}

    void add(const Pictures& pictures, const Look& look, const QString& lookName) const
    {
        const QString scale = m_options.scale == 1 ? QString() : u"@%1x"_s.arg(m_options.scale);
        for (const Picture& picture : pictures) {
            const QString name = picture.name + u'-' + lookName + scale + u".png"_s;
            Stage stage(look);
            if (!picture.take(stage).save(QDir(m_options.folder).filePath(name)))
                qFatal("%s cannot be written", qPrintable(name));
        }
    }

private:
    const Options m_options;
};

} // namespace

int main(int argc, char** argv)
{
    const Options options = parse(argc, argv);
    const QTemporaryDir screen;
    describeScreen(screen.filePath(u"screen.json"_s), options.scale);
    installAccessibleParts();
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    if (!QDir().mkpath(options.folder))
        qFatal("the folder cannot be made");

    const Pictures changing = mainWindowPictures() + editorPictures() + capturePictures();
    const Pictures all = changing + menuPictures() + alertPictures() + onboardingPictures() +
                         settingsPictures() + trayPictures() + updatePictures();
    const Album album(options);
    album.add(all, {.appearance = Appearance::light}, u"light"_s);
    album.add(all, {.appearance = Appearance::dark}, u"dark"_s);
    // Texts that are a third longer, in the smallest window.
    album.add(changing, {.language = u"en-XA"_s, .windowSize = {900, 620}}, u"long"_s);
    QTextStream(stdout) << options.folder << Qt::endl;
    return EXIT_SUCCESS;
}
