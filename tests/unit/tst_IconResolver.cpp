// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "IconResolver.h"

#include "ConfigManager.h"
#include "DefaultActions.h"
#include "LocalizationManager.h"
#include "Log.h"
#include "NotificationCenter.h"
#include "ResourceBundle.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class tst_IconResolver : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    NotificationCenter m_notifications;
    LocalizationManager m_localization;
    std::unique_ptr<ConfigManager> m_config;
    ResourceBundle m_bundle { m_folder.filePath(QStringLiteral("bundle")) };

    /// Images are told apart by their colour.
    void addToBundle(const QString &file, QColor color)
    {
        QImage image(20, 10, QImage::Format_ARGB32);
        image.fill(color);
        QVERIFY(image.save(m_folder.filePath(QStringLiteral("bundle/") + file)));
    }

    QString addIcon(const QString &file, const QByteArray &content)
    {
        QFile out(m_folder.filePath(QStringLiteral("GlintClone/Icons/") + file));
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(file));
        return QStringLiteral("custom:") + file;
    }

    QString addIcon(const QString &file, const QImage &image)
    {
        if (!image.save(m_folder.filePath(QStringLiteral("GlintClone/Icons/") + file)))
            qFatal("cannot write %s", qPrintable(file));
        return QStringLiteral("custom:") + file;
    }

    static QByteArray bigEndian(quint32 number)
    {
        QByteArray bytes;
        for (const int shift : { 24, 16, 8, 0 })
            bytes += static_cast<char>(number >> shift & 0xFF);
        return bytes;
    }

    /// The beginning of a PNG that claims the size (PNG specification, IHDR).
    static QByteArray pngHeader(quint32 width, quint32 height)
    {
        const QByteArray chunk
            = "IHDR" + bigEndian(width) + bigEndian(height) + QByteArray("\x08\x06\x00\x00\x00", 5);
        quint32 crc = 0xFFFFFFFF;
        for (const char byte : chunk) {
            crc ^= static_cast<unsigned char>(byte);
            for (int bit = 0; bit < 8; ++bit)
                crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320 : 0);
        }
        return "\x89PNG\r\n\x1a\n" + bigEndian(13) + chunk + bigEndian(~crc);
    }

private Q_SLOTS:
    void initTestCase()
    {
        Log::setSink([](QStringView) {});
        QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("GlintClone/Icons")));
        QVERIFY(QDir(m_folder.path()).mkpath(QStringLiteral("bundle")));
        m_config.reset(new ConfigManager({ m_folder.path(), m_notifications, m_localization }));
        addToBundle(QStringLiteral("phosphor_star.png"), Qt::red);
        addToBundle(QStringLiteral("phosphor_warning.png"), Qt::green);
        addToBundle(QStringLiteral("phosphor_copy.png"), Qt::blue);
        addToBundle(QStringLiteral("phosphor_Zed.png"), Qt::blue);
        addToBundle(QStringLiteral("icon_other.bmp"), Qt::yellow);
        addToBundle(QStringLiteral("custom:here.png"), Qt::cyan);
        addToBundle(QStringLiteral("phosphor_not.bmp"), Qt::cyan);
    }

    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    void resolves_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QColor>("color"); // invalid: no image
        const auto row = [](const char *name, QColor color) {
            QTest::newRow(name) << QString::fromLatin1(name) << color;
        };
        row("phosphor_star", Qt::red);
        row("icon_other", Qt::yellow);
        row("star", Qt::red);
        row("star.circle", Qt::red);
        row("exclamationmark.triangle.fill", Qt::green);
        row("doc.on.doc.fill", Qt::blue);
        row("custom:here", Qt::cyan);
        row("custom:", {});
        row("custom:missing.png", {});
        row("phosphor_missing", {});
        row("Star", {});
        row("starfish", {});
        row("", {});
    }

    void resolves()
    {
        QFETCH(QString, name);
        QFETCH(QColor, color);
        const QImage image = IconResolver(*m_config, m_bundle).image(name);
        QCOMPARE(image.isNull(), !color.isValid());
        if (color.isValid())
            QCOMPARE(image.pixelColor(5, 5), color);
    }

    void listsIconSet()
    {
        QCOMPARE(
            m_bundle.iconSetNames(),
            (QStringList { QStringLiteral("phosphor_Zed"), QStringLiteral("phosphor_copy"),
                           QStringLiteral("phosphor_star"), QStringLiteral("phosphor_warning") }));
        QCOMPARE(ResourceBundle(QStringLiteral("/nowhere")).iconSetNames(), QStringList());
    }

    void scalesCustomImages_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("small") << QSize(16, 8) << QSize(16, 8);
        QTest::newRow("just fits") << QSize(128, 128) << QSize(128, 128);
        QTest::newRow("wide") << QSize(512, 256) << QSize(128, 64);
        QTest::newRow("a line") << QSize(3000, 2) << QSize(128, 1);
    }

    void scalesCustomImages()
    {
        QFETCH(QSize, size);
        QFETCH(QSize, expected);
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::magenta);
        // The content decides, whatever the extension says.
        const QString name = addIcon(QStringLiteral("scaled.png"), image);
        const QString misnamed = QStringLiteral("scaled.jpg");
        QFile::remove(m_folder.filePath(QStringLiteral("GlintClone/Icons/") + misnamed));
        QVERIFY(QFile::copy(*m_config->getCustomIconURL(name),
                            m_folder.filePath(QStringLiteral("GlintClone/Icons/") + misnamed)));
        for (const QString &each : { name, QStringLiteral("custom:") + misnamed }) {
            const QImage icon = IconResolver(*m_config, m_bundle).image(each);
            QCOMPARE(icon.size(), expected);
            QCOMPARE(icon.pixelColor(0, 0), QColor(Qt::magenta));
        }
    }

    void noticesChangedFile()
    {
        QImage image(4, 4, QImage::Format_ARGB32);
        image.fill(Qt::red);
        const QString name = addIcon(QStringLiteral("changing.png"), image);
        const IconResolver resolver(*m_config, m_bundle);
        QCOMPARE(resolver.image(name).pixelColor(0, 0), QColor(Qt::red));
        image.fill(Qt::blue);
        addIcon(QStringLiteral("changing.png"), image);
        QFile file(*m_config->getCustomIconURL(name));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(60),
                                 QFileDevice::FileModificationTime));
        QCOMPARE(resolver.image(name).pixelColor(0, 0), QColor(Qt::blue));
        QVERIFY(file.remove());
        QVERIFY(resolver.image(name).isNull());
    }

    void survivesBadFiles_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("no image");
        QTest::newRow("PNG of 30,000 x 30,000") << pngHeader(30'000, 30'000);
        QTest::newRow("PNG of 2^31 - 1 squared") << pngHeader(0x7FFFFFFF, 0x7FFFFFFF);
        QTest::newRow("PNG, a line of 2^30") << pngHeader(1 << 30, 1);
        QTest::newRow("PNG of no size") << pngHeader(0, 0);
        QTest::newRow("PNG, only its signature") << pngHeader(1, 1).first(8);
        QTest::newRow("PNM of 100,000 x 100,000") << QByteArray("P6 100000 100000 255\nabc");
        QTest::newRow("XPM that lies")
            << QByteArray("/* XPM */\nstatic char *a[] = {\n\"99999 99999 2 1\",");
        QTest::newRow("GIF of 65,535 squared") << QByteArray("GIF89a\xff\xff\xff\xff\x80\0\0", 13);
    }

    void survivesBadFiles()
    {
        QFETCH(QByteArray, content);
        const QString name = addIcon(QStringLiteral("bad.png"), content);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(IconResolver(*m_config, m_bundle).image(name).isNull());
        QVERIFY(timer.elapsed() < 1000);
    }

    void survivesCutFile()
    {
        QImage image(64, 64, QImage::Format_ARGB32);
        image.fill(Qt::red);
        const QString name = addIcon(QStringLiteral("cut.png"), image);
        QFile file(*m_config->getCustomIconURL(name));
        QVERIFY(file.resize(file.size() - 30));
        QVERIFY(IconResolver(*m_config, m_bundle).image(name).isNull());
    }

    /// Every name that the program itself uses is in the icon set.
    void bundleIsComplete()
    {
        const ResourceBundle bundle(QStringLiteral(TESSEL_BUNDLE));
        const IconResolver resolver(*m_config, bundle);
        QStringList names { QStringLiteral("icon_translate"), QStringLiteral("icon_chatgpt") };
        for (const ActionConfig &action : DefaultActions::all() + DefaultActions::standard())
            names.append(action.iconName);
        names += QStringLiteral("magnifyingglass doc.on.doc number text.magnifyingglass "
                                "textformat.size calendar.badge.plus square.and.pencil "
                                "character.book.closed bubble.left.and.bubble.right star heart "
                                "bookmark flag bell tag bolt camera gear doc doc.text folder trash "
                                "pencil scissors paperclip link envelope phone play pause stop "
                                "calendar clock alarm map location globe house lock key shield "
                                "person eye sun.max moon cloud car airplane star.circle "
                                "exclamationmark.triangle.fill plus minus")
                     .split(u' ');
        for (const QString &name : names)
            QVERIFY2(!resolver.image(name).isNull(), qPrintable(name));
    }
};

QTEST_GUILESS_MAIN(tst_IconResolver)
#include "tst_IconResolver.moc"
