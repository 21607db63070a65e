// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/TooltipWindow.h"
#include "widget/PanelFixture.h"

#include <QScreen>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

QList<HoverButton *> buttonsOf(const PanelWindow &bar)
{
    auto all = bar.findChildren<HoverButton *>();
    all.removeIf([](const HoverButton *button) { return button->isHidden(); });
    return all;
}

}

class tst_FloatingPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void offersWhatApplies()
    {
        PanelFixture fixture;
        fixture.setActions({ { u"any"_s, {} },
                             { u"number"_s, u"\\d+"_s },
                             { u"broken"_s, u"("_s },
                             { u"link"_s, u"https?://\\S+"_s },
                             { u"last"_s, {} } });
        PanelWindow *bar = fixture.show(u"order 4711 please"_s);
        QVERIFY(bar);
        QStringList titles;
        for (const HoverButton *button : buttonsOf(*bar))
            titles += button->accessibleName();
        QCOMPARE(titles, QStringList({ u"any"_s, u"number"_s, u"last"_s }));
        QCOMPARE(*buttonsOf(*bar).at(1)->effectiveText, u"4711"_s);

        // The third button has the third key, whatever was left out before it.
        QTest::keyClick(bar, Qt::Key_3, Qt::NoModifier);
        QTRY_COMPARE(fixture.platform.workspace().opened,
                     QStringList { u"test://last/order%204711%20please"_s });

        fixture.setActions({ { u"number"_s, u"\\d+"_s } });
        QTRY_VERIFY(!shownWindow<PanelWindow>());
        QVERIFY(!fixture.show(u"words"_s)); // nothing to offer
        QVERIFY(fixture.show(u"42"_s));
    }

    void countButtonShowsTheCount()
    {
        PanelFixture fixture; // the default actions: the fourth one counts
        QCOMPARE(buttonsOf(*fixture.show(u"é"_s)).at(3)->text(), u"1 char"_s);
        const HoverButton *count = buttonsOf(*fixture.show(QString(123456, u'x'))).at(3);
        QCOMPARE(count->accessibleName(), u"Count: 123456 chars"_s);
        QVERIFY(count->width() >= count->fontMetrics().horizontalAdvance(count->text()));
    }

    void clickRunsTheActionOnce()
    {
        PanelFixture fixture;
        const auto &host = fixture.platform.popupHost();
        const QStringList &opened = fixture.platform.workspace().opened;
        fixture.setActions({ { u"open"_s, {} } });
        PanelWindow *bar = fixture.show(u"it's"_s);
        QCOMPARE(host.keys, bar->windowHandle());
        HoverButton *button = buttonsOf(*bar).at(0);
        QTest::mouseClick(button, Qt::LeftButton);
        QTest::mouseClick(button, Qt::LeftButton);
        QTRY_VERIFY(!host.keys); // given back before the action runs
        QVERIFY(opened.isEmpty());
        QTRY_COMPARE(opened, QStringList { u"test://open/it's"_s });
        QTRY_VERIFY(!bar->isVisible());
        QVERIFY(!button->effectiveText); // the text is not kept
        QCOMPARE(opened.size(), 1);
    }

    void escapeDelaysNoLaterAction()
    {
        PanelFixture fixture;
        fixture.setActions({ { u"open"_s, {} } });
        QTest::keyPress(fixture.show(u"word"_s), Qt::Key_Escape); // its release goes elsewhere
        QTest::mouseClick(buttonsOf(*fixture.show(u"word"_s)).at(0), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(fixture.platform.workspace().opened.size(), 1, 1500);
    }

    void comesBackWhileItHides()
    {
        for (const auto &[behind, opacity] : { std::pair { Backdrop::none, 255 },
                                               { Backdrop::sharp, 247 },
                                               { Backdrop::blurred, 204 } }) {
            PanelFixture fixture;
            auto &host = fixture.platform.popupHost();
            host.behind = behind;
            fixture.panel.hide(); // never shown: nothing happens
            PanelWindow *bar = fixture.show(u"text"_s);
            QCOMPARE(bar->mask().isEmpty(), behind != Backdrop::none);
            const QPoint ground(PanelLayout::barMargins.left() + 5, bar->height() / 2);
            QTRY_COMPARE(bar->grab().toImage().pixelColor(ground).alpha(), opacity);
            fixture.panel.hide();
            fixture.panel.hide();
            QVERIFY(!host.keys);
            fixture.show(u"again"_s);
            QTest::qWait(200); // longer than the fade: it must not take the new showing with it
            QVERIFY(bar->isVisible());
            QCOMPARE(fixture.panel.currentText(), u"again"_s);
        }
    }

    void followsChangesWhileShown()
    {
        PanelFixture fixture;
        fixture.setActions({ { u"one"_s, {} } });
        const PanelWindow *bar = fixture.show(u"text"_s);
        const int bottom = bar->geometry().bottom();
        fixture.setActions(QList<std::pair<QString, QString>>(6, { u"more"_s, {} }));
        const QRect second = buttonsOf(*bar).at(5)->geometry();
        QVERIFY(fixture.platform.popupHost().active.contains(second)); // can be clicked
        QCOMPARE(bar->geometry().bottom(), bottom); // the pointer is as free as before
        Q_EMIT QGuiApplication::primaryScreen()->geometryChanged({});
        QTRY_VERIFY(!shownWindow<PanelWindow>());

        fixture.config.enableKeyboardShortcuts = false;
        fixture.show(u"text"_s);
        QVERIFY(!fixture.platform.popupHost().keys);
        fixture.setActions({ { u"number"_s, u"\\d+"_s } });
        QTRY_VERIFY(!shownWindow<PanelWindow>());
    }

    void tooltipsAndShortcutLetters()
    {
        PanelFixture fixture;
        fixture.setActions({ { u"First"_s, {} }, { u"Second"_s, {} } });
        PanelWindow *bar = fixture.show(u"text"_s);
        HoverButton *first = buttonsOf(*bar).at(0);
        const auto enter = [](HoverButton *button) {
            QEnterEvent event(QPointF(5, 5), QPointF(5, 5), button->mapToGlobal(QPointF(5, 5)));
            QApplication::sendEvent(button, &event);
        };
        for (const int shadow : { 0, 10 }) {
            fixture.platform.popupHost().behind = shadow == 0 ? Backdrop::none : Backdrop::sharp;
            enter(first);
            auto *tooltip = shownWindow<TooltipWindow>();
            QVERIFY(tooltip);
            // The arrow's tip is on the middle of the button's top edge.
            const QRect bubble = tooltip->geometry().adjusted(shadow, shadow, -shadow, -shadow);
            const QPoint tip = first->mapToGlobal(QPoint(first->width() / 2, 0));
            QCOMPARE(bubble.y() + bubble.height(), tip.y());
            QVERIFY(qAbs(bubble.x() + bubble.width() / 2 - tip.x()) <= 1);
            const QColor edge = tooltip->grab().toImage().pixelColor(shadow / 2, shadow * 2);
            QCOMPARE(edge.alpha() > 0 && edge.alpha() < 100, shadow > 0);
            QEvent leaving(QEvent::Leave);
            QApplication::sendEvent(first, &leaving);
            QVERIFY(!shownWindow<TooltipWindow>());
        }

        const QImage labelled = first->grab().toImage();
        fixture.config.showTooltips = false;
        fixture.config.showKeyboardShortcuts = false;
        fixture.config.save();
        enter(buttonsOf(*bar).at(1));
        QVERIFY(!shownWindow<TooltipWindow>());
        QVERIFY(first->grab().toImage() != labelled);
    }
};

QTEST_MAIN(tst_FloatingPanel)
#include "tst_FloatingPanel.moc"
