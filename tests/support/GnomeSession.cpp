// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/GnomeSession.h"

#include "files/Files.h"
#include "support/GnomeUser.h"

#include <QDBusReply>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr int timeoutMs = int(defaultTimeout.count());
constexpr char oldShell[] = "Shell 4[34]"; // extensions are no modules
constexpr char x11Sockets[] = "/tmp/.X11-unix"; // where the shell's X server listens

const QString extension = u"tessel@com.tessel.app"_s;
const QString shell = u"org.gnome.Shell"_s;
const QString display = u"wayland-gnome"_s;

// What the test sees of the shell: windows go to where they are expected, and a selection is read
// without a window.
constexpr char16_t eyes[] = uR"(
    const { Gio, Meta } = imports.gi;
    const selection = global.display.get_selection();
    const types = ['text/plain;charset=utf-8', 'UTF8_STRING', 'text/plain'];
    global.display.connect('notify::focus-window', () => {
        const window = global.display.focus_window;
        if (window?.get_wm_class() && !window.get_wm_class().includes('essel')) {
            window.unmaximize?.(Meta.MaximizeFlags.BOTH);
            window.move_resize_frame(false, 0, Main.panel.height, %1, %2);
        }
    });
    global.eyes = {
        read(name) {
            const type = Meta.SelectionType[name];
            const mime = types.find(each => selection.get_mimetypes(type).includes(each));
            const stream = Gio.MemoryOutputStream.new_resizable();
            this.text = mime ? undefined : '';
            if (!mime)
                return;
            selection.transfer_async(type, mime, -1, stream, null, (_, result) => {
                try {
                    selection.transfer_finish(result);
                    stream.close(null);
                    this.text = new TextDecoder().decode(stream.steal_as_bytes().toArray());
                } catch {
                    this.text = '';
                }
            });
        },
    };
    true;
)";

QString connectionName(const QString &home)
{
    return u"test of "_s + home;
}

}

GnomeSession::GnomeSession() = default;

GnomeSession::~GnomeSession()
{
    QDBusConnection::disconnectFromBus(connectionName(homePath()));
}

bool GnomeSession::start(const GnomeOptions &options)
{
    return prepare() && writeSettings(options) && (!options.extension || installExtension())
        && startSystemServices() && startBus() && startShell()
        && setUser(std::make_unique<GnomeUser>(bus()));
}

bool GnomeSession::restartShell()
{
    endShell();
    return startShell() && setUser(std::make_unique<GnomeUser>(bus()));
}

bool GnomeSession::writeSettings(const GnomeOptions &options)
{
    const QString settings
        = u"[org/gnome/desktop/background]\n"
          "picture-options='none'\n"
          "primary-color='#000000'\n"
          "[org/gnome/desktop/input-sources]\n"
          "sources=[('xkb', '%1')]\n"
          "[org/gnome/desktop/interface]\n"
          "enable-animations=false\n"
          "enable-hot-corners=false\n"
          "[org/gnome/desktop/notifications]\n"
          "show-banners=false\n"
          "[org/gnome/mutter]\n"
          "auto-maximize=false\n"
          "[org/gnome/shell]\n"
          "enabled-extensions=@as [%2]\n"
          "welcome-dialog-last-shown-version='999'\n"_s.arg(
              options.keyboardLayout, options.extension ? u"'tessel@com.tessel.app'"_s : QString());
    setVariable(u"GSETTINGS_BACKEND"_s, u"keyfile"_s);
    return writeFile(configPath() + u"/glib-2.0/settings/keyfile"_s, settings)
        || fail(u"cannot write settings"_s);
}

bool GnomeSession::installExtension()
{
    ChildProcess version;
    const bool isKnown
        = version.start(u"gnome-shell"_s, { u"--version"_s }, environment(), homePath())
        && version.waitForExit();
    const bool isOld = version.output().contains(QRegularExpression(QLatin1String(oldShell)));
    const QString folder = u"%1/gnome-shell/extensions/%2/"_s.arg(dataPath(), extension);
    const QDir source(QStringLiteral(TESSEL_GNOME_EXTENSIONS) + (isOld ? u"/43"_s : u"/45"_s));
    bool isDone = isKnown && QDir().mkpath(folder);
    for (const auto &file : source.entryList(QDir::Files))
        isDone = isDone && QFile::copy(source.filePath(file), folder + file);
    return isDone || fail(u"cannot install the extension"_s);
}

bool GnomeSession::startSystemServices()
{
    if (!startBus(u"system-bus"_s, u"DBUS_SYSTEM_BUS_ADDRESS"_s))
        return false;
    launch(u"/usr/bin/python3"_s,
           { u"-m"_s, u"dbusmock"_s, u"--system"_s, u"--template"_s, u"logind"_s });
    return run(u"gdbus"_s,
               { u"wait"_s, u"--system"_s, u"--timeout"_s, u"15"_s, u"org.freedesktop.login1"_s });
}

bool GnomeSession::startShell()
{
    if (::mkdir(x11Sockets, 0) == 0)
        ::chmod(x11Sockets, 01777);
    setVariable(u"LIBGL_ALWAYS_SOFTWARE"_s, u"1"_s);
    setVariable(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
    setVariable(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    const auto options
        = u"--wayland --headless --unsafe-mode --virtual-monitor %1x%2 --wayland-display %3"_s
              .arg(outputSize.width())
              .arg(outputSize.height())
              .arg(display);
    m_shell = &launch(u"gnome-shell"_s, options.split(u' '));
    const auto hasOverviewClosed = [this] {
        return evaluate(
                   u"Main.layoutManager._startingUp || (Main.overview.hide(), Main.overview.visible)"_s)
            == QJsonValue(false)
            || !m_shell->isRunning();
    };
    if (!QTest::qWaitFor(hasOverviewClosed, timeoutMs) || !m_shell->isRunning())
        return fail(u"gnome-shell does not start: "_s + m_shell->errorOutput());
    const auto script = QString::fromUtf16(eyes).arg(windowSize.width()).arg(windowSize.height());
    if (evaluate(script) != QJsonValue(true))
        return fail(u"the shell shows nothing"_s);
    setVariable(u"WAYLAND_DISPLAY"_s, display);
    for (const auto &name : { u"DISPLAY"_s, u"XAUTHORITY"_s })
        setVariable(name, evaluate(u"imports.gi.GLib.getenv('%1')"_s.arg(name)).toString());
    return true;
}

QDBusConnection GnomeSession::bus() const
{
    return QDBusConnection::connectToBus(environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s),
                                         connectionName(homePath()));
}

QJsonValue GnomeSession::evaluate(const QString &script)
{
    auto call = QDBusMessage::createMethodCall(shell, u"/org/gnome/Shell"_s, shell, u"Eval"_s);
    call << script;
    const auto answer = bus().call(call).arguments();
    if (!answer.value(0).toBool())
        return QJsonValue::Undefined;
    const auto json = QJsonDocument::fromJson('[' + answer.value(1).toByteArray() + ']');
    return json.array().at(0);
}

bool GnomeSession::waitForFocus(const QString &application)
{
    const auto hasFocus
        = [&] { return evaluate(u"global.display.focus_window?.get_wm_class()"_s) == application; };
    return QTest::qWaitFor(hasFocus, timeoutMs);
}

QImage GnomeSession::screenshot()
{
    const QString service = shell + u".Screenshot"_s;
    const QString file = temporaryPath() + u"/screen.png"_s;
    auto call = QDBusMessage::createMethodCall(service, u"/org/gnome/Shell/Screenshot"_s, service,
                                               u"Screenshot"_s);
    call << false << false << file; // neither pointer nor flash
    return QDBusReply<bool>(bus().call(call)).value() ? QImage(file) : QImage();
}

QString GnomeSession::primarySelection()
{
    return selectedText(u"SELECTION_PRIMARY"_s);
}

QString GnomeSession::clipboard()
{
    return selectedText(u"SELECTION_CLIPBOARD"_s);
}

QString GnomeSession::selectedText(const QString &type)
{
    QJsonValue text = evaluate(u"global.eyes.read('%1')"_s.arg(type));
    const auto isThere = [&] {
        text = evaluate(u"global.eyes.text"_s);
        return text.isString();
    };
    return QTest::qWaitFor(isThere, timeoutMs) ? text.toString() : QString();
}

}
