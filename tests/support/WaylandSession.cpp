// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/WaylandSession.h"

#include "files/Files.h"
#include "support/WaylandUser.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr uint nobody = 65534;
constexpr int timeoutMs = int(defaultTimeout.count());

QString outerConfiguration(const QSize &size)
{
    return u"xwayland disable\n"
           "default_border none\n"
           "output HEADLESS-1 mode %1x%2\n"
           "exec "_s.arg(size.width())
               .arg(size.height());
}

// Both end with the beginning of a command.
QString innerConfiguration(const WaylandOptions &options)
{
    const QSize size = WaylandSession::windowSize;
    QString text
        = u"default_border none\n"
          "default_floating_border none\n"
          "focus_follows_mouse no\n"
          "input * xkb_layout %1\n"
          "xwayland %2\n"_s.arg(options.keyboardLayout, options.x11 ? u"enable"_s : u"disable"_s);
    for (qsizetype i = 0; i < options.scales.size(); ++i)
        text += u"output WL-%1 scale %2\n"_s.arg(i + 1).arg(options.scales[i]);
    for (const auto *criteria : { "app_id", "class" })
        text += u"for_window [%1=\".*\"] floating enable, resize set %2 px %3 px, "
                "move absolute position 0 px 0 px\n"_s.arg(QLatin1String(criteria))
                    .arg(size.width())
                    .arg(size.height());
    // Others than the compositor's user are kept out of its X server.
    return text + (options.x11 ? u"exec xhost +local: && "_s : u"exec "_s);
}

QJsonObject focusedNode(const QJsonObject &node)
{
    if (node.value(u"focused"_s).toBool())
        return node;
    for (const auto *list : { "nodes", "floating_nodes" }) {
        const auto children = node.value(QLatin1String(list)).toArray();
        for (const auto &child : children) {
            if (const auto found = focusedNode(child.toObject()); !found.isEmpty())
                return found;
        }
    }
    return {};
}

}

bool WaylandSession::start(const WaylandOptions &options)
{
    const QSize size(outputSize.width() * int(options.scales.size()), outputSize.height());
    if (!prepare() || !startBus())
        return false;
    QProcessEnvironment outer = environment();
    outer.insert(u"WLR_BACKENDS"_s, u"headless"_s);
    outer.insert(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
    if (!startSway(u"outer"_s, outerConfiguration(size), outer))
        return false;
    m_outerSocket = m_offered.take(u"WAYLAND_DISPLAY"_s);

    QProcessEnvironment inner = environment();
    inner.insert(u"WLR_BACKENDS"_s, u"wayland"_s);
    inner.insert(u"WAYLAND_DISPLAY"_s, m_outerSocket);
    m_isKWin = options.kwin;
    if (m_isKWin ? !startKWin() : !startSway(u"inner"_s, innerConfiguration(options), inner))
        return false;
    for (auto variable = m_offered.cbegin(); variable != m_offered.cend(); ++variable)
        setVariable(variable.key(), variable.value());
    // One after the other: sway 1.10 loses its connection when it makes several at once.
    for (qsizetype i = 1; i < options.scales.size(); ++i) {
        if (!run(u"swaymsg"_s, { u"create_output"_s }))
            return false;
    }
    return setUser(std::make_unique<WaylandUser>(m_outerSocket, size));
}

bool WaylandSession::startSway(const QString &name, const QString &configuration,
                               QProcessEnvironment own)
{
    const QString folder = path(name);
    const QString file = folder + u"/config"_s;
    const QString offered = folder + u"/offered"_s;
    if (!writeFile(file, configuration + u"env >%1.new && mv %1.new %1\n"_s.arg(offered)))
        return fail(u"cannot write "_s + file);
    QStringList command { u"sway"_s, u"--config"_s, file };
    if (::geteuid() == 0) { // which sway refuses to be
        const auto asNobody = u"setpriv --reuid=%1 --regid=%1 --clear-groups --pdeathsig TERM"_s;
        command = asNobody.arg(nobody).split(u' ') + command;
        QFile::setPermissions(path(u"."_s), QFile::Permissions(0x7001)); // to be passed through
        if (::chown(qPrintable(folder), nobody, nobody) != 0)
            return fail(u"cannot give away "_s + folder);
    }
    own.insert(u"HOME"_s, folder);
    own.insert(u"XDG_RUNTIME_DIR"_s, folder);
    own.insert(u"WLR_RENDERER"_s, u"pixman"_s);
    m_compositor = &launch(command.takeFirst(), command, own);
    const auto isUpOrGone = [&] { return QFile::exists(offered) || !m_compositor->isRunning(); };
    if (!QTest::qWaitFor(isUpOrGone, timeoutMs) || !m_compositor->isRunning())
        return fail(u"sway does not start: "_s + m_compositor->errorOutput());
    readOffer(folder);
    return true;
}

void WaylandSession::readOffer(const QString &folder)
{
    m_offered.clear();
    const auto variables = QString::fromLocal8Bit(readFile(folder + u"/offered"_s)).split(u'\n');
    for (const auto &variable : variables) {
        const QString name = variable.section(u'=', 0, 0);
        const QString value = variable.section(u'=', 1);
        if (name == u"WAYLAND_DISPLAY")
            m_offered.insert(name, folder + u'/' + value); // of whatever runtime folder
        else if (name == u"DISPLAY" || name == u"SWAYSOCK")
            m_offered.insert(name, value);
    }
}

bool WaylandSession::startKWin()
{
    // A copy has none of the file's capabilities, with which it would outlive the test.
    const QString program = path(u"kwin_wayland"_s);
    if (!QFile::copy(u"/usr/bin/kwin_wayland"_s, program))
        return fail(u"there is no KWin"_s);
    const QString socket = runtimePath() + u"/wayland-kwin"_s;
    m_offered = { { u"WAYLAND_DISPLAY"_s, socket } };
    QProcessEnvironment own = environment();
    own.insert(u"KWIN_COMPOSE"_s, u"Q"_s); // without OpenGL
    const auto options
        = u"--wayland-display %1 --width %2 --height %3 --no-lockscreen --socket %4"_s
              .arg(m_outerSocket)
              .arg(outputSize.width())
              .arg(outputSize.height())
              .arg(QFileInfo(socket).fileName());
    m_compositor = &launch(program, options.split(u' '), own);
    return QTest::qWaitFor([&] { return QFile::exists(socket); }, timeoutMs)
        || fail(u"KWin does not start: "_s + m_compositor->errorOutput());
}

QString WaylandSession::outputOf(const QString &program, const QStringList &arguments)
{
    ChildProcess child;
    const bool isDone
        = child.start(program, arguments, environment(), homePath()) && child.waitForExit();
    return isDone ? child.output() : QString();
}

QString WaylandSession::focusedApplication()
{
    const auto tree = outputOf(u"swaymsg"_s, { u"--raw"_s, u"--type"_s, u"get_tree"_s });
    const auto node = focusedNode(QJsonDocument::fromJson(tree.toUtf8()).object());
    const QString id = node.value(u"app_id"_s).toString();
    return id.isEmpty() ? node.value(u"window_properties"_s)[u"class"_s].toString() : id;
}

bool WaylandSession::waitForFocus(const QString &application)
{
    return m_isKWin
        || QTest::qWaitFor([&] { return focusedApplication() == application; }, timeoutMs);
}

QString WaylandSession::primarySelection()
{
    return outputOf(u"wl-paste"_s, { u"--primary"_s, u"--no-newline"_s });
}

QString WaylandSession::clipboard()
{
    return outputOf(u"wl-paste"_s, { u"--no-newline"_s });
}

QImage WaylandSession::screenshot()
{
    const QString file = temporaryPath() + u"/screen.ppm"_s;
    QProcessEnvironment outer = environment();
    outer.insert(u"WAYLAND_DISPLAY"_s, m_outerSocket);
    ChildProcess grim;
    const bool isDone = grim.start(u"grim"_s, { u"-t"_s, u"ppm"_s, file }, outer, homePath())
        && grim.waitForExit() && grim.exitCode() == 0;
    return isDone ? QImage(file) : QImage();
}

void WaylandSession::endCompositor()
{
    m_compositor->end();
}

}
