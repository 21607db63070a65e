// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/IconResolver.h"

#include "base/Log.h"
#include "config/ConfigManager.h"
#include "config/DefaultActions.h"
#include "config/LocalizationManager.h"
#include "config/NotificationCenter.h"
#include "config/ResourceBundle.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

class tst_IconResolver : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    NotificationCenter m_notifications;
    LocalizationManager m_localization;
    std::unique_ptr<ConfigManager> m_config;
    ResourceBundle m_bundle { m_folder.filePath(u"bundle"_s) };

    /// Images are told apart by their colour.
    static QImage filled(QSize size, QColor color)
    {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(color);
        return image;
    }

    static QByteArray encoded(const QImage &image)
    {
        QByteArray content;
        QBuffer buffer(&content);
        image.save(&buffer, "PNG");
        return content;
    }

    QString addIcon(const QString &file, const QByteArray &content)
    {
        QFile out(m_folder.filePath(u"GlintClone/Icons/"_s + file));
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
            qFatal("cannot write %s", qPrintable(file));
        return u"custom:"_s + file;
    }

    [[nodiscard]] QImage icon(const QString &name) const
    {
        return IconResolver(*m_config, m_bundle).image(name);
    }

    /// The beginning of a PNG of that size (PNG specification, IHDR); numbers are hexadecimal.
    static QByteArray pngHeader(const char *width, const char *height, const char *crc)
    {
        return "\x89PNG\r\n\x1a\n"
            + QByteArray::fromHex(QByteArray("0000000d49484452") + width + height + "0806000000"
                                  + crc);
    }

private Q_SLOTS:
    void initTestCase()
    {
        Log::setSink([](QStringView) {});
        QVERIFY(QDir(m_folder.path()).mkpath(u"GlintClone/Icons"_s));
        QVERIFY(QDir(m_folder.path()).mkpath(u"bundle"_s));
        m_config.reset(new ConfigManager({ m_folder.path(), m_notifications, m_localization }));
        for (const auto &[file, color] : {
                 std::pair { u"phosphor_star.png"_s, Qt::red },
                 { u"phosphor_warning.png"_s, Qt::green },
                 { u"phosphor_Zed.png"_s, Qt::blue },
                 { u"icon_other.bmp"_s, Qt::yellow },
                 { u"custom:here.png"_s, Qt::cyan },
                 { u"phosphor_not.bmp"_s, Qt::cyan },
             })
            QVERIFY(filled({ 20, 10 }, color).save(m_folder.filePath(u"bundle/"_s + file)));
    }

    void resolves()
    {
        for (const auto &[name, color] : { std::pair { u"phosphor_star"_s, Qt::red },
                                           { u"icon_other"_s, Qt::yellow },
                                           { u"star"_s, Qt::red },
                                           { u"exclamationmark.triangle.fill"_s, Qt::green },
                                           { u"custom:here"_s, Qt::cyan } })
            QCOMPARE(icon(name).pixelColor(5, 5), QColor(color));
        for (const QString &name : { u"phosphor_missing"_s, u"Star"_s, u"starfish"_s, QString() })
            QVERIFY2(icon(name).isNull(), qPrintable(name));
    }

    void listsIconSet()
    {
        QCOMPARE(m_bundle.iconSetNames(),
                 u"phosphor_Zed phosphor_star phosphor_warning"_s.split(u' '));
    }

    void scalesCustomImages_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("small") << QSize(16, 8) << QSize(16, 8);
        QTest::newRow("wide") << QSize(512, 256) << QSize(128, 64);
        QTest::newRow("a line") << QSize(3000, 2) << QSize(128, 1);
    }

    void scalesCustomImages()
    {
        QFETCH(QSize, size);
        const QByteArray content = encoded(filled(size, Qt::magenta));
        // The content decides, whatever the extension says.
        for (const QString &file : { u"scaled.png"_s, u"scaled.jpg"_s }) {
            const QImage image = icon(addIcon(file, content));
            QTEST(image.size(), "expected");
            QCOMPARE(image.pixelColor(0, 0), QColor(Qt::magenta));
        }
    }

    void noticesChangedFile()
    {
        const QString name = addIcon(u"changing.png"_s, encoded(filled({ 4, 4 }, Qt::red)));
        const IconResolver resolver(*m_config, m_bundle);
        QCOMPARE(resolver.image(name).pixelColor(0, 0), QColor(Qt::red));
        addIcon(u"changing.png"_s, encoded(filled({ 4, 4 }, Qt::blue)));
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
        QTest::newRow("text") << QByteArray("no image");
        QTest::newRow("cut") << encoded(filled({ 64, 64 }, Qt::red)).chopped(30);
        QTest::newRow("PNG of 30,000 x 30,000") << pngHeader("00007530", "00007530", "6627f8ba");
        QTest::newRow("PNG, a line of 2^30") << pngHeader("40000000", "00000001", "4d5a3e1c");
        QTest::newRow("PNM of 100,000 x 100,000") << QByteArray("P6 100000 100000 255\nabc");
    }

    void survivesBadFiles()
    {
        QFETCH(QByteArray, content);
        const QString name = addIcon(u"bad.png"_s, content);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(icon(name).isNull());
        QVERIFY(timer.elapsed() < 1000);
    }

    /// Every name that the program itself uses is in the icon set.
    void bundleIsComplete()
    {
        const ResourceBundle bundle(QStringLiteral(TESSEL_BUNDLE));
        const IconResolver resolver(*m_config, bundle);
        QStringList names { u"icon_translate"_s, u"icon_chatgpt"_s };
        for (const ActionConfig &action : DefaultActions::all() + DefaultActions::standard())
            names.append(action.iconName);
        names
            += u"plus minus gear star exclamationmark.triangle.fill character.book.closed"_s.split(
                u' ');
        for (const QString &name : names)
            QVERIFY2(!resolver.image(name).isNull(), qPrintable(name));
    }
};

QTEST_GUILESS_MAIN(tst_IconResolver)
#include "tst_IconResolver.moc"
