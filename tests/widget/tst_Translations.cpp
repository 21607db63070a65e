// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/ShellAction.h"
#include "app/MenuBarManager.h"
#include "app/UpdaterController.h"
#include "dialog/ListDialog.h"
#include "dialog/MessageDialog.h"
#include "settings/ApplicationChooser.h"
#include "settings/IconPickerViewController.h"
#include "settings/KeyNames.h"
#include "widget/SettingsFixture.h"
#include "windows/AboutWindow.h"
#include "windows/ErrorPanel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPushButton>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// What is the same in all languages, data among it.
bool isName(const QString &text)
{
    static const QStringList names { u"Tessel"_s, u"English"_s, u"한국어"_s, u"中文"_s };
    static const QRegularExpression key(uR"(^(F\d+|.|phosphor_.*|org\..*)$)"_s);
    return names.contains(text) || key.match(text).hasMatch();
}

/// What is left of a text without those of the table.
QString untranslated(QString text)
{
    static const QRegularExpression translated(u"⟦[^⟧]*⟧"_s);
    static const QRegularExpression tags(u"<[^<>]*>"_s);
    text = text.remove(translated).remove(tags).trimmed();
    const bool hasWords
        = std::any_of(text.begin(), text.end(), [](QChar c) { return c.isLetter(); });
    return hasWords && !isName(text) ? text : QString();
}

QStringList textsOf(const QWidget &widget)
{
    QStringList texts { widget.toolTip(), widget.accessibleName(), widget.accessibleDescription() };
    if (widget.isWindow())
        texts += widget.windowTitle();
    for (const QAction *action : widget.actions())
        texts += action->text();
    for (const char *property : { "text", "plainText", "placeholderText" })
        texts += widget.property(property).toString();
    if (const auto *tabs = qobject_cast<const QTabBar *>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            texts += tabs->tabText(i);
    }
    if (const auto *choices = qobject_cast<const QComboBox *>(&widget)) {
        for (int i = 0; i < choices->count(); ++i)
            texts += choices->itemText(i);
    }
    const auto *view = qobject_cast<const QAbstractItemView *>(&widget);
    const auto *model = view ? view->model() : nullptr;
    for (int column = 0; model && column < model->columnCount(); ++column) {
        if (widget.inherits("QTableView"))
            texts += model->headerData(column, Qt::Horizontal).toString();
        for (int row = 0; row < std::min(model->rowCount(), 9); ++row) {
            for (const int role : { int(Qt::ToolTipRole), ActionsModel::placeholderRole })
                texts += model->index(row, column).data(role).toString();
        }
    }
    return texts;
}

/// In all windows, and in the menu.
QStringList untranslated()
{
    QStringList found;
    for (const QWidget *widget : QApplication::allWidgets()) {
        if (!widget->isVisible() && !qobject_cast<const QMenu *>(widget))
            continue;
        for (const QString &text : textsOf(*widget)) {
            if (!untranslated(text).isEmpty())
                found
                    += u"%1: %2"_s.arg(QLatin1StringView(widget->metaObject()->className()), text);
        }
    }
    return found;
}

}

/// In a language of the test's own, every text is between brackets: what is not cannot be
/// translated.
class tst_Translations : public QObject
{
    Q_OBJECT

    QTemporaryDir m_tables;

    [[nodiscard]] LocalizationManager bracketed() const
    {
        LocalizationManager texts(m_tables.path());
        texts.currentLanguage = u"xx"_s;
        return texts;
    }

private Q_SLOTS:
    void initTestCase()
    {
        Log::setSink([](QStringView) {});
        const QString english = u"" TESSEL_BUNDLE "/Localizations/en.json"_s;
        QJsonObject table = QJsonDocument::fromJson(readFile(english)).object();
        for (const QString &key : table.keys())
            table[key] = u'⟦' + key + u'⟧';
        QVERIFY(writeFile(m_tables.filePath(u"xx.json"_s), QJsonDocument(table).toJson()));
        LocalizationManager::shared() = bracketed();
    }

    void settings()
    {
        SettingsFixture fixture;
        fixture.texts = bracketed();
        fixture.config.triggerKeyCode = 49; // Space
        fixture.config.customActions.clear();
        for (const ActionTypeInfo &info : actionTypes()) {
            ActionConfig action { u"x"_s, u"Tessel"_s, u"custom:gone"_s, info.type, {}, u"("_s };
            fixture.config.customActions += action;
            action.templateText = u"echo {text}"_s; // which a shell would interpret
            fixture.config.customActions += action;
        }
        fixture.open();
        QCOMPARE(untranslated().join(u'\n'), QString());
        fixture.control<QAbstractButton>(u"⟦Add⟧"_s)->click();
        QVERIFY(shownWindow<ApplicationChooser>());
        QCOMPARE(untranslated().join(u'\n'), QString());
        shownWindow<ApplicationChooser>()->reject();
        fixture.showActions();
        fixture.click(0, ActionsModel::iconColumn);
        QVERIFY(shownWindow<IconPickerViewController>());
        QCOMPARE(untranslated().join(u'\n'), QString());
        Q_EMIT fixture.notifications.languageDidChange();
        QCOMPARE(untranslated().join(u'\n'), QString());
        for (int keyCode = 0; keyCode < 128; ++keyCode)
            QCOMPARE(untranslated(keyCodeToString(keyCode)), QString());
    }

    void others()
    {
        PanelFixture fixture;
        MenuBarManager menu { { fixture.config, LocalizationManager::shared(),
                                fixture.notifications, fixture.bundle, fixture.platform } };
        UpdaterController updater({ fixture.platform.workspace(), {}, {}, {}, {}, {} });
        updater.checkForUpdates();
        AboutWindow::open({});
        Osascript::DialogRequest question;
        question.buttons = { u"Cancel"_s, u"OK"_s };
        question.defaultAnswer = u""_s;
        MessageDialog message(question);
        message.show();
        Osascript::ListRequest choice;
        choice.prompt = u"Please make your selection:"_s;
        choice.cancelButton = u"Cancel"_s;
        choice.okButton = u"OK"_s;
        ListDialog list(choice);
        list.show();
        CommandResult failure;
        failure.exitStatus = 1;
        failure.errorOutput = "\xff";
        const Failure tooLarge { u"⟦in the language⟧"_s };
        for (const auto &result :
             { Result<CommandResult>(failure), Result<CommandResult>(tooLarge) }) {
            const auto error = shellReport(result).error;
            menu.showError(error->title, error->message);
            QTRY_VERIFY(shownWindow<ErrorPanel>());
            QCOMPARE(untranslated().join(u'\n'), QString());
        }
    }
};

QTEST_MAIN(tst_Translations)
#include "tst_Translations.moc"
