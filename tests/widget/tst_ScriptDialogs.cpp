// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "dialog/ListDialog.h"
#include "dialog/MessageDialog.h"
#include "lib/dialog/DialogProtocol.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace Tessel;
using namespace Qt::StringLiterals;
using Osascript::DialogRequest;
using Osascript::ListRequest;

namespace {

DialogRequest message(const QString &text)
{
    DialogRequest request;
    request.message = text;
    request.buttons = { u"Cancel"_s, u"OK"_s };
    request.defaultButton = u"OK"_s;
    request.cancelButton = u"Cancel"_s;
    return request;
}

QString shownMessage(const MessageDialog &dialog)
{
    const auto *box = dialog.findChild<QPlainTextEdit *>();
    return box ? box->toPlainText() : dialog.findChild<QLabel *>()->text();
}

/// The request as the other process gets it.
template <typename Request> QJsonObject overThePipe(const Request &request)
{
    return QJsonDocument::fromJson(QJsonDocument(DialogProtocol::toJson(request)).toJson())
        .object();
}

}

class tst_ScriptDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsTextExactly()
    {
        const auto shown = [](const QString &text) {
            return shownMessage(
                MessageDialog(DialogProtocol::dialogRequest(overThePipe(message(text)))));
        };
        for (const QString &text :
             { u"He said \"a\\b\"\nand 'c' \\"_s, u"<b>x</b> &amp; <br>& &File"_s,
               u"line\n"_s.repeated(500), u"a"_s + QChar(0xd800) })
            QCOMPARE(shown(text), text);
        QCOMPARE(shown(u"a\r\nb\rc"_s), u"a\nb\nc"_s);
        QCOMPARE(shown(u"a\x1b[31m\x7f"_s), u"a␛[31m␡"_s);
    }

    /// The message has all its lines, however they have to be broken, and no more room than that.
    void messageFits()
    {
        const MessageDialog without(message(QString()));
        for (const auto &[text, lines] : // at least
             { std::pair(u"Text"_s, 1), std::pair(QString(400, u'm'), 5),
               std::pair(QString(1 << 20, u'x'), 10) }) {
            QElapsedTimer timer;
            timer.start();
            MessageDialog dialog(message(text));
            dialog.show();
            QVERIFY(QTest::qWaitForWindowExposed(&dialog));
            QVERIFY(timer.elapsed() < 5000);
            const int added = dialog.sizeHint().height() - without.sizeHint().height();
            QVERIFY(added >= lines * dialog.fontMetrics().height());
            QVERIFY(dialog.width() < 600);
            if (const auto *box = dialog.findChild<QPlainTextEdit *>()) {
                QCOMPARE(box->toPlainText().remove(u'\n'), text); // long lines are broken up
                QCOMPARE(box->verticalScrollBar()->maximum() == 0, text.size() < 500);
            }
        }
    }

    void keys()
    {
        DialogRequest request = message(u"Text"_s);
        const auto answers = [&request](Qt::Key key) {
            MessageDialog dialog(request);
            dialog.show();
            QSignalSpy spy(&dialog, &MessageDialog::answered);
            QTest::keyClick(&dialog, key);
            dialog.close();
            return spy.isEmpty() ? QList<int>() : QList<int> { spy.first().first().toInt() };
        };
        QCOMPARE(answers(Qt::Key_Return), QList<int> { 1 });
        QCOMPARE(answers(Qt::Key_Escape), QList<int> { 0 });
        request.cancelButton.clear();
        request.buttons = { u"OK"_s };
        QCOMPARE(answers(Qt::Key_Escape), QList<int> { 0 });
        request.defaultButton.clear();
        request.buttons = { u"A"_s, u"B & C"_s, u"D"_s };
        QCOMPARE(answers(Qt::Key_Return), QList<int>());
        QCOMPARE(answers(Qt::Key_Escape), QList<int>());
    }

    void textField()
    {
        DialogRequest request = message(u"Name?"_s);
        request.defaultAnswer = u"a\\\"b"_s;
        MessageDialog dialog(DialogProtocol::dialogRequest(overThePipe(request)));
        dialog.show();
        QCOMPARE(dialog.focusWidget(), dialog.findChild<QLineEdit *>());
        QSignalSpy spy(&dialog, &MessageDialog::answered);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_End);
        QTest::keyClicks(dialog.focusWidget(), u"!"_s);
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        QCOMPARE(spy.size(), 1);
        const auto answer = DialogProtocol::dialogAnswer(
            DialogProtocol::dialogAnswer(spy[0][0].toInt(), spy[0][1].toString()), request);
        QCOMPARE(answer.button, u"OK"_s);
        QCOMPARE(answer.text, u"a\\\"b!"_s);
        QVERIFY(!answer.gaveUp);

        request.defaultAnswer = u"two\nlines"_s;
        QCOMPARE(MessageDialog(request).findChild<QPlainTextEdit *>()->toPlainText(),
                 u"two\nlines"_s);
        request.hiddenAnswer = true;
        QCOMPARE(MessageDialog(request).findChild<QLineEdit *>()->echoMode(), QLineEdit::Password);
    }

    void givesUp()
    {
        DialogRequest request = message(u"Text"_s);
        request.givingUpAfter = std::chrono::milliseconds(1);
        MessageDialog dialog(DialogProtocol::dialogRequest(overThePipe(request)));
        QSignalSpy spy(&dialog, &MessageDialog::answered);
        QVERIFY(spy.wait());
        const auto answer = DialogProtocol::dialogAnswer(
            DialogProtocol::dialogAnswer(spy[0][0].toInt(), QString()), request);
        QVERIFY(answer.gaveUp);
        QVERIFY(answer.button.isEmpty());
    }

    void choosesItems()
    {
        ListRequest request;
        request.items = { u"a"_s, u"b & c"_s, u"d\ne"_s, u"b & c"_s };
        request.defaultItems = { u"d\ne"_s };
        request.prompt = u"Pick:"_s;
        request.okButton = u"OK"_s;
        request.cancelButton = u"Cancel"_s;
        request.multipleSelections = true;
        ListDialog dialog(DialogProtocol::listRequest(overThePipe(request)));
        dialog.show();
        auto *list = dialog.findChild<QListWidget *>();
        QCOMPARE(list->item(1)->text(), u"b & c"_s);
        QVERIFY(list->item(2)->isSelected());
        std::optional<QList<int>> chosen = QList<int> { 7 };
        connect(&dialog, &ListDialog::answered, this, [&chosen](const auto &c) { chosen = c; });
        list->clearSelection();
        QTest::keyClick(list, Qt::Key_Return); // nothing is selected, so OK is disabled
        QCOMPARE(chosen, QList<int> { 7 });
        list->item(2)->setSelected(true);
        list->item(3)->setSelected(true);
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(DialogProtocol::listAnswer(DialogProtocol::listAnswer(chosen), request),
                 (QStringList { u"d\ne"_s, u"b & c"_s }));

        dialog.show();
        QTest::keyClick(list, Qt::Key_Escape);
        QVERIFY(!DialogProtocol::listAnswer(DialogProtocol::listAnswer(chosen), request));
    }
};

QTEST_MAIN(tst_ScriptDialogs)
#include "tst_ScriptDialogs.moc"
