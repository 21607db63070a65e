// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsModel.h"
#include "settings/IconPickerViewController.h"
#include "widget/SettingsFixture.h"
#include "windows/WindowStyle.h"

#include <QFileDialog>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>

using namespace Tessel;
using namespace Qt::StringLiterals;

/// The icons of actions.
class tst_IconPicker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Log::setSink([](QStringView) {});
        QApplication::setStyle(new WindowStyle);
    }

    void iconPicker()
    {
        SettingsFixture fixture;
        fixture.showActions();
        fixture.click(0, ActionsModel::iconColumn);
        QPointer picker = fixture.window->findChild<IconPickerViewController *>();
        QVERIFY(picker && picker->isVisible());
        const auto *grid = picker->findChild<QListView *>();
        auto *search = picker->findChild<QLineEdit *>();
        QCOMPARE(search->placeholderText(), u"Search 1512 icons..."_s);
        const auto rowOf
            = [grid](int icon) { return grid->visualRect(grid->model()->index(icon, 0)).y(); };
        QTRY_COMPARE(rowOf(5), rowOf(0));
        QVERIFY(rowOf(6) > rowOf(0));
        search->setText(u"."_s); // stands for itself
        QCOMPARE(grid->model()->rowCount(), 0);
        search->setText(u"BELL-z"_s);
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {},
                          grid->visualRect(grid->model()->index(0, 0)).center());
        QTRY_VERIFY(!picker);
        QCOMPARE(fixture.saved(0).iconName, u"phosphor_bell-z"_s);

        fixture.click(0, ActionsModel::iconColumn);
        picker = fixture.window->findChild<IconPickerViewController *>();
        picker->findChild<QPushButton *>()->click();
        auto *dialog = fixture.window->findChild<QFileDialog *>();
        QVERIFY(dialog->selectedFiles().isEmpty()); // where there is no folder Pictures
        dialog->reject();
        QTRY_VERIFY(!picker);
    }

    void importedIcons()
    {
        const QByteArray png = readFile(u"" TESSEL_BUNDLE "/phosphor_star.png"_s);
        QByteArray huge = png; // its header says 30,000 by 30,000
        huge.replace(16, 8, QByteArray::fromHex("0000753000007530"));
        QByteArray icns = "icns" + QByteArray(4, '\0') + "ic07" + QByteArray(4, '\0') + png;
        icns[14] = char((png.size() + 8) >> 8);
        icns[15] = char((png.size() + 8) & 0xff);
        // A grey TIFF of two pixels by two (TIFF 6.0, section 2).
        const QByteArray tiff = QByteArray::fromHex(
            "49492a00080000000800000103000100000002000000010103000100000002000000020103000100000008"
            "00000003010300010000000100000006010300010000000100000011010400010000006e00000016010300"
            "01000000020000001701040001000000040000000000000000ff40c0");
        const QByteArray webp = QByteArray::fromHex(
            "524946461c000000574542505650384c0f0000002f014000000710fd8ffe0722a2ff0100");
        const auto svg = [](const QByteArray &content) {
            return "<?xml version='1.0'?><svg xmlns='http://www.w3.org/2000/svg' width='9' "
                   "height='9'>"
                + content + "</svg>";
        };
        const QByteArray deep = QByteArray("<g>").repeated(100'000) + "<rect width='9' height='9'/>"
            + QByteArray("</g>").repeated(100'000);
        const QString unreadable = u"The image file cannot be read"_s;
        SettingsFixture fixture;
        fixture.showActions();
        const QString path = fixture.folder.filePath(u"icon.icns"_s);
        for (const auto &[content, reason] :
             { std::pair { icns, QString() },
               { tiff, {} },
               { webp, {} },
               { svg("<text y='9'>A</text>"), {} },
               { svg("<image width='9' height='9' href='data:;base64," + png.toBase64() + "'/>"),
                 {} },
               { svg("<image width='9' height='9' href='" TESSEL_BUNDLE "/phosphor_star.png'/>"),
                 unreadable },
               { svg(deep), unreadable },
               { huge, unreadable },
               { icns.left(100), unreadable },
               { tiff.left(60), unreadable },
               { webp.left(30), unreadable },
               { QByteArray("#!/bin/sh\n"), unreadable } }) {
            QVERIFY(writeFile(path, content));
            fixture.click(0, ActionsModel::iconColumn);
            const QPointer picker = fixture.window->findChild<IconPickerViewController *>();
            picker->importIcon(path);
            QTRY_VERIFY(!picker);
            QVERIFY(fixture.config.getCustomIconURL(fixture.saved(0).iconName));
            auto *box = fixture.window->findChild<QMessageBox *>();
            QCOMPARE(box ? box->text() : QString(), reason);
            delete box;
            const QModelIndex cell = fixture.table().model()->index(0, ActionsModel::iconColumn);
            QCOMPARE(cell.data(Qt::ToolTipRole).toString(), reason);
            fixture.window->grab();
        }
    }
};

QTEST_MAIN(tst_IconPicker)
#include "tst_IconPicker.moc"
