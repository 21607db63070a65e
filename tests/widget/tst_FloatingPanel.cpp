// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "widget/PanelFixture.h"

#include <QApplication>
#include <QPainter>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// The picture of a widget on a plain ground.
QImage picture(QWidget &widget)
{
    QImage image(widget.size(), QImage::Format_RGB32);
    image.fill(QColor(127, 127, 127));
    widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/// Lightness of an area, 0 to 255.
struct Light
{
    int darkest = 255;
    int lightest = 0;
    int mean = 0;
};

Light lightOf(const QImage &image, const QRect &area)
{
    Light light;
    const QImage part = image.copy(area);
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            const int value = qGray(part.pixel(x, y));
            light.darkest = qMin(light.darkest, value);
            light.lightest = qMax(light.lightest, value);
            light.mean += value;
        }
    }
    light.mean /= part.width() * part.height();
    return light;
}

}

class tst_FloatingPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offersWhatApplies()
    {
        PanelFixture bar;
        bar.setActions({ { u"any"_s, {} },
                         { u"number"_s, u"\\d+"_s },
                         { u"broken"_s, u"("_s },
                         { u"link"_s, u"https?://\\S+"_s },
                         { u"last"_s, {} } });
        bar.show(u"order 4711 please"_s);
        QCOMPARE(bar.shownTitles(), QStringList({ u"any"_s, u"number"_s, u"last"_s }));
        QCOMPARE(*bar.buttons().at(1)->effectiveText, u"4711"_s);

        // The third button has the third key, whatever was left out before it.
        QTest::keyClick(&bar.panel.window(), Qt::Key_3, Qt::NoModifier);
        QTRY_COMPARE(bar.platform.workspace().opened,
                     QStringList { u"test://last/order%204711%20please"_s });
    }

    void nothingToOfferShowsNothing()
    {
        PanelFixture bar;
        bar.setActions({ { u"number"_s, u"\\d+"_s } });
        bar.show(u"words"_s);
        QVERIFY(!bar.panel.isVisible());
        QVERIFY(!bar.panel.window().isVisible());
        bar.show(u"42"_s);
        QVERIFY(bar.panel.window().isVisible());
    }

    void geometry_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QSize>("window");
        QTest::newRow("one") << 1 << QSize(38 + 64, 38 + 56);
        QTest::newRow("five") << 5 << QSize(5 * 38 + 4 * 2 + 64, 38 + 56);
        QTest::newRow("six") << 6 << QSize(5 * 38 + 4 * 2 + 64, 2 * 38 + 2 + 56);
        QTest::newRow("twenty-one") << 21 << QSize(5 * 38 + 4 * 2 + 64, 5 * 38 + 4 * 2 + 56);
    }

    void geometry()
    {
        QFETCH(int, count);
        QFETCH(QSize, window);
        PanelFixture bar;
        QList<std::pair<QString, QString>> actions;
        for (int i = 0; i < count; ++i)
            actions += { QString::number(i), QString() };
        bar.setActions(actions);
        bar.show(u"text"_s);
        QCOMPARE(bar.panel.window().size(), window);
        const QPoint pointer = bar.platform.popupHost().location.pointer;
        QCOMPARE(bar.panel.window().pos(),
                 QPoint(pointer.x() - window.width() / 2, pointer.y() + 10 - window.height()));
        // Only the rounded bar takes clicks: 10 above the pointer, 20 away from the window's edge.
        const QRect active = bar.platform.popupHost().active;
        QCOMPARE(active.bottomLeft() + QPoint(0, 1), QPoint(22, window.height() - 20));
        QCOMPARE(active.width(), window.width() - 44);
    }

    void countButtonShowsTheCount_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("title");
        QTest::newRow("one") << u"👨‍👩‍👧‍👦"_s << u"1 char"_s;
        QTest::newRow("many") << u"hello world"_s << u"11 chars"_s;
        QTest::newRow("lots") << QString(123456, u'x') << u"123456 chars"_s;
    }

    void countButtonShowsTheCount()
    {
        QFETCH(QString, text);
        QFETCH(QString, title);
        PanelFixture bar; // the default actions: the fourth one counts
        bar.show(text);
        HoverButton *count = bar.buttons().at(3);
        QCOMPARE(count->text(), title);
        QVERIFY(count->width() >= count->fontMetrics().horizontalAdvance(title));
        QVERIFY(bar.panel.window().width() >= 5 * 38 + 4 * 2 + 64);
    }

    void clickRunsTheActionOnce()
    {
        PanelFixture bar;
        bar.setActions({ { u"open"_s, {} } });
        bar.show(u"it's"_s);
        QCOMPARE(bar.platform.popupHost().keyboard, bar.panel.window().windowHandle());
        QTest::mouseClick(bar.buttons().at(0), Qt::LeftButton);
        QTest::mouseClick(bar.buttons().at(0), Qt::LeftButton);
        QTRY_VERIFY(!bar.panel.isVisible());
        QVERIFY(!bar.platform.popupHost().keyboard); // given back before the action runs
        QVERIFY(bar.platform.workspace().opened.isEmpty());
        QTRY_COMPARE(bar.platform.workspace().opened, QStringList { u"test://open/it's"_s });
        QTRY_VERIFY(!bar.panel.window().isVisible());
        QVERIFY(bar.panel.currentText().isEmpty());
        QCOMPARE(bar.platform.workspace().opened.size(), 1);
    }

    void escapeDelaysNoLaterAction()
    {
        PanelFixture bar;
        bar.setActions({ { u"open"_s, {} } });
        bar.show(u"word"_s);
        QTest::keyPress(&bar.panel.window(), Qt::Key_Escape); // its release goes elsewhere
        bar.show(u"word"_s);
        QTest::mouseClick(bar.buttons().at(0), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(bar.platform.workspace().opened.size(), 1, 1500);
    }

    void hidesOnEveryWay_data()
    {
        QTest::addColumn<bool>("compositing");
        QTest::addColumn<bool>("makeKey");
        QTest::newRow("faded") << true << true;
        QTest::newRow("without compositor") << false << true;
        QTest::newRow("without keyboard") << true << false;
    }

    void hidesOnEveryWay()
    {
        QFETCH(bool, compositing);
        QFETCH(bool, makeKey);
        PanelFixture bar;
        bar.platform.popupHost().compositing = compositing;
        bar.config.enableKeyboardShortcuts = makeKey;
        bar.panel.hide(); // never shown: nothing happens
        bar.show(u"text"_s);
        QCOMPARE(bool(bar.platform.popupHost().keyboard), makeKey);
        if (!makeKey)
            QTest::keyClick(&bar.panel.window(), Qt::Key_1); // does nothing
        QCOMPARE(bar.panel.window().mask().isEmpty(), compositing);
        bar.panel.hide();
        bar.panel.hide();
        QVERIFY(!bar.platform.popupHost().keyboard);
        bar.show(u"again"_s); // while it fades out
        QTest::qWait(200); // longer than the fade: it must not take the new showing with it
        QVERIFY(bar.panel.window().isVisible());
        QCOMPARE(bar.panel.currentText(), u"again"_s);
        if (!makeKey)
            QVERIFY(bar.platform.workspace().opened.isEmpty());
    }

    void followsThemeAndSystem()
    {
        PanelFixture bar;
        bar.setActions({ { u"star"_s, {} } });
        bar.show(u"text"_s);
        const QRect button(PanelLayout::windowMargin + 2 + 12, PanelLayout::windowMargin + 8, 38,
                           38);
        const auto looksDark = [&] {
            const Light light = lightOf(picture(bar.panel.window()), button);
            // The icon stands out from the ground, whichever of them is the dark one.
            return light.lightest - light.darkest > 150 && light.mean < 128;
        };
        const auto looksLight = [&] {
            const Light light = lightOf(picture(bar.panel.window()), button);
            return light.lightest - light.darkest > 150 && light.mean > 128;
        };
        QTRY_VERIFY(looksLight());
        bar.platform.appearance().setDark(true);
        QTRY_VERIFY(looksDark());
        bar.config.themeMode = ThemeMode::light;
        bar.config.save();
        QTRY_VERIFY(looksLight());
        bar.config.themeMode = ThemeMode::dark;
        bar.platform.appearance().setDark(false);
        bar.config.save();
        QTRY_VERIFY(looksDark());
    }

    void tooltipsAndShortcutLetters()
    {
        PanelFixture bar;
        bar.setActions({ { u"First"_s, {} }, { u"Second"_s, {} } });
        bar.show(u"text"_s);
        const auto bubbles = [] {
            QList<QWidget *> found;
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (widget->inherits("Tessel::TooltipWindow") && widget->isVisible())
                    found += widget;
            }
            return found;
        };
        const auto enter = [](HoverButton *button) {
            QEnterEvent event(QPointF(5, 5), QPointF(5, 5), button->mapToGlobal(QPointF(5, 5)));
            QApplication::sendEvent(button, &event);
        };
        const auto leave = [](HoverButton *button) {
            QEvent event(QEvent::Leave);
            QApplication::sendEvent(button, &event);
        };
        HoverButton *first = bar.buttons().at(0);
        enter(first);
        QCOMPARE(bubbles().size(), 1);
        // The arrow's tip is on the middle of the button's top edge.
        const QRect bubble = bubbles().at(0)->geometry();
        const QPoint tip = first->mapToGlobal(QPoint(first->width() / 2, 0));
        QCOMPARE(bubble.y() + bubble.height(), tip.y());
        QVERIFY(qAbs(bubble.x() + bubble.width() / 2 - tip.x()) <= 1);
        leave(first);
        QVERIFY(bubbles().isEmpty());

        bar.config.showTooltips = false;
        bar.config.showKeyboardShortcuts = false;
        QImage labelled = first->grab().toImage();
        bar.config.save();
        enter(bar.buttons().at(1));
        QVERIFY(bubbles().isEmpty());
        QVERIFY(first->grab().toImage() != labelled);
        bar.panel.hide();
    }
};

QTEST_MAIN(tst_FloatingPanel)
#include "tst_FloatingPanel.moc"
