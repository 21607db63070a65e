// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/IconResolver.h"

#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "config/ConfigManager.h"
#include "config/DefaultActions.h"
#include "config/NotificationCenter.h"
#include "config/ResourceBundle.h"
#include "files/Files.h"

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

    [[nodiscard]] QString path(const QString &file) const
    {
        return m_folder.filePath(u"GlintClone/Icons/"_s + file);
    }

    [[nodiscard]] QImage icon(const QString &name) const
    {
        return IconResolver(*m_config, m_bundle).image(name);
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
                 { u"phosphor_image-broken.png"_s, Qt::gray },
             })
            QVERIFY(filled({ 20, 10 }, color).save(m_folder.filePath(u"bundle/"_s + file)));
    }

    void resolves()
    {
        for (const auto &[name, color] : { std::pair { u"phosphor_star"_s, Qt::red },
                                           { u"icon_other"_s, Qt::yellow },
                                           { u"star"_s, Qt::red },
                                           { u"exclamationmark.triangle.fill"_s, Qt::green },
                                           { u"custom:here"_s, Qt::cyan },
                                           { u"custom:gone.png"_s, Qt::gray } })
            QCOMPARE(icon(name).pixelColor(5, 5), QColor(color));
        for (const QString &name : { u"phosphor_missing"_s, u"Star"_s, u"starfish"_s, QString() })
            QVERIFY2(icon(name).isNull(), qPrintable(name));
        QCOMPARE(m_bundle.iconSetNames().join(u' '),
                 u"phosphor_Zed phosphor_image-broken phosphor_star phosphor_warning"_s);
    }

    void scalesCustomImages()
    {
        for (const auto &[size, expected] : { std::pair { QSize(16, 8), QSize(16, 8) },
                                              { QSize(512, 256), QSize(128, 64) },
                                              { QSize(3000, 2), QSize(128, 1) } }) {
            // The content decides, whatever the name says.
            QVERIFY(filled(size, Qt::magenta).save(path(u"scaled.jpg"_s), "PNG"));
            const QImage image = icon(u"custom:scaled.jpg"_s);
            QCOMPARE(image.size(), expected);
            QCOMPARE(image.pixelColor(0, 0), QColor(Qt::magenta));
        }
    }

    void survivesBadFiles()
    {
        // PNGs that begin as if they were of 30,000 pixels squared, and a line of 2^30.
        const QByteArray png = "\x89PNG\r\n\x1a\n";
        const QByteArray square("0000000d494844520000753000007530"
                                "08060000006627f8ba");
        const QByteArray line("0000000d494844524000000000000001"
                              "08060000004d5a3e1c");
        for (const QByteArray &content :
             { QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>"
                          "<rect width='9' height='9'/></svg>"), // that is the importer's to draw
               png + QByteArray::fromHex(square), png + QByteArray::fromHex(line) }) {
            QVERIFY(writeFile(path(u"bad.png"_s), content));
            QCOMPARE(icon(u"custom:bad.png"_s).pixelColor(0, 0), QColor(Qt::gray));
            const auto shown = IconResolver(*m_config, m_bundle).check(u"custom:bad.png"_s);
            QVERIFY2(!shown && shown.error().reason == u"The image file cannot be read",
                     content.constData());
        }
    }

    /// Every name that the program itself uses is in the icon set.
    void bundleIsComplete()
    {
        const ResourceBundle bundle(u"" TESSEL_BUNDLE ""_s);
        const IconResolver resolver(*m_config, bundle);
        QStringList names { u"icon_chatgpt"_s, u"plus"_s, u"minus"_s,
                            u"gear"_s,         u"star"_s, u"exclamationmark.triangle.fill"_s };
        for (const ActionConfig &action : DefaultActions::all() + DefaultActions::standard())
            names.append(action.iconName);
        for (const QString &name : names)
            QVERIFY2(!resolver.image(name).isNull(), qPrintable(name));
    }
};

QTEST_GUILESS_MAIN(tst_IconResolver)
#include "tst_IconResolver.moc"
