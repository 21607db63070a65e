// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// What Tessel asks of the shell, which no other program may: the shell has no protocols for it.
// com.tessel.app.Shell.xml says what each method does. Nothing is shown or kept here.

import Clutter from 'gi://Clutter';
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';

const PROGRAM = 'com.tessel.app';
const PATH = '/com/tessel/app/Shell';
const INTERFACE = 'com.tessel.app.Shell';
const TEXT = 'text/plain;charset=utf-8';
const MAX_BYTES = 64 * 1024 * 1024 + 1;
const HELD = Clutter.ModifierType.SHIFT_MASK | Clutter.ModifierType.CONTROL_MASK |
    Clutter.ModifierType.MOD1_MASK | Clutter.ModifierType.MOD4_MASK |
    Clutter.ModifierType.MOD5_MASK;

export class Service {
    // `main` is the shell's, `folder` the one with the description of the interface.
    constructor(main, folder) {
        this._main = main;
        this._program = null; // its name on the bus, with its process, once it has attached
        this._places = new Map(); // of popups to come, by title
        this._popups = new Set(); // windows
        this._waits = new Set(); // event sources
        this._connections = [];
        this._trigger = {accelerator: '', action: Meta.KeyBindingAction.NONE};
        this._selection = global.display.get_selection();

        const [, xml] = folder.get_child(`${INTERFACE}.xml`).load_contents(null);
        this._object = Gio.DBusExportedObject.wrapJSObject(new TextDecoder().decode(xml), this);
        for (const {name} of this._object.get_info().methods)
            this[`${name}Async`] = (values, call) => this._answer(name, values, call);
        this._object.export(Gio.DBus.session, PATH);
        this._watch = Gio.bus_watch_name(Gio.BusType.SESSION, PROGRAM,
            Gio.BusNameWatcherFlags.NONE, (bus, name, owner) => this._greet(owner),
            () => this._detach());
    }

    destroy() {
        if (this._program)
            this._emit('Gone');
        this._detach();
        Gio.bus_unwatch_name(this._watch);
        this._object.unexport();
    }

    // Asks the owner of the program's name to attach.
    _greet(owner) {
        this._detach();
        this._owner = owner;
        Gio.DBus.session.emit_signal(owner, PATH, INTERFACE, 'Ready', null);
    }

    _emit(signal, types = '', ...values) {
        Gio.DBus.session.emit_signal(this._program.name, PATH, INTERFACE, signal,
            new GLib.Variant(`(${types})`, values));
    }

    // Who has the token is the program, or was started by it.
    async _answer(method, [token, ...values], call) {
        try {
            if (method !== 'Attach' && token !== this._program?.token)
                throw new Error('only Tessel may call this');
            const result = await this[`_${method}`](...values, call, token);
            const types = call.get_method_info().out_args.map(({signature}) => signature);
            call.return_value(new GLib.Variant(`(${types.join('')})`, result ?? []));
            if (method === 'Attach')
                this._begin();
        } catch (error) {
            call.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied', `${error.message}`);
        }
    }

    async _Attach(call, token) {
        const name = call.get_sender();
        const [reply] = (await new Promise((resolve, reject) => Gio.DBus.session.call(
            'org.freedesktop.DBus', '/', 'org.freedesktop.DBus', 'GetConnectionCredentials',
            new GLib.Variant('(s)', [name]), null, Gio.DBusCallFlags.NONE, -1, null,
            (bus, result) => {
                try {
                    resolve(bus.call_finish(result));
                } catch (error) {
                    reject(error);
                }
            }))).recursiveUnpack();
        const self = new Gio.Credentials();
        if (name !== this._owner || token.length < 32 || reply.UnixUserID !== self.get_unix_user())
            throw new Error(`only the owner of ${PROGRAM} may attach`);
        this._detach();
        this._owner = name;
        this._program = {name, token, process: reply.ProcessID};
    }

    _connect(object, signal, handler) {
        this._connections.push([object, object.connect(signal, handler)]);
    }

    _begin() {
        const {display} = global;
        this._connect(this._selection, 'owner-changed', (_, type, source) => {
            this._emit('SelectionChanged', 'uas', type, source?.get_mimetypes() ?? []);
        });
        this._connect(display, 'notify::focus-window', () => this._tellFront());
        this._connect(display, 'accelerator-activated', (_, action) => {
            if (action === this._trigger.action)
                this._emit('Triggered');
        });
        this._connect(display, 'window-created', (_, window) => this._meet(window));
        this._connect(global.window_manager, 'map', (_, {metaWindow}) => this._place(metaWindow));
        for (const type of [Meta.SelectionType.SELECTION_CLIPBOARD,
            Meta.SelectionType.SELECTION_PRIMARY])
            this._emit('SelectionChanged', 'uas', type, this._selection.get_mimetypes(type));
        this._tellFront();
        const context = global.stage.context?.get_backend() ?? Clutter.get_default_backend();
        this._keyboard = context.get_default_seat().create_virtual_device(
            Clutter.InputDeviceType.KEYBOARD_DEVICE);
    }

    _detach() {
        this._release();
        this._connections.splice(0).forEach(([object, id]) => object.disconnect(id));
        this._waits.forEach(source => GLib.source_remove(source));
        this._waits.clear();
        this._places.clear();
        this._popups.clear();
        this._trigger.accelerator = '';
        this._program = this._owner = this._keyboard = null;
    }

    _sleep(milliseconds) {
        return new Promise(resolve => {
            const source = GLib.timeout_add(GLib.PRIORITY_DEFAULT, milliseconds, () => {
                this._waits.delete(source);
                resolve();
                return GLib.SOURCE_REMOVE;
            });
            this._waits.add(source);
        });
    }

    _grab() {
        const {accelerator} = this._trigger;
        if (!accelerator || this._trigger.action !== Meta.KeyBindingAction.NONE)
            return;
        this._trigger.action = global.display.grab_accelerator(accelerator,
            Meta.KeyBindingFlags.IGNORE_AUTOREPEAT);
        this._main.wm.allowKeybinding(
            Meta.external_binding_name_for_action(this._trigger.action), Shell.ActionMode.NORMAL);
    }

    _release() {
        if (this._trigger.action !== Meta.KeyBindingAction.NONE)
            global.display.ungrab_accelerator(this._trigger.action);
        this._trigger.action = Meta.KeyBindingAction.NONE;
    }

    _SetTrigger(accelerator) {
        this._release();
        this._trigger.accelerator = accelerator;
        this._grab();
        return [!accelerator || this._trigger.action !== Meta.KeyBindingAction.NONE];
    }

    async _PassTriggerOn(keys) {
        this._release();
        await this._AwaitModifiers();
        this._PressKeys(keys);
        await this._sleep(100); // the press comes back from the shell's thread for input
        this._grab();
    }

    async _AwaitModifiers() {
        for (let tries = 200; global.get_pointer()[2] & HELD && tries > 0; --tries)
            await this._sleep(5);
    }

    _PressKeys(keys) {
        const press = (key, state) =>
            this._keyboard.notify_key(GLib.get_monotonic_time(), key, state);
        keys.forEach(key => press(key, Clutter.KeyState.PRESSED));
        keys.reverse().forEach(key => press(key, Clutter.KeyState.RELEASED));
    }

    _describe(window) {
        return [window.get_id(), window.get_wm_class() ?? '', window.get_title() ?? '',
            window.get_pid(), window.minimized];
    }

    _tellFront() {
        const window = global.display.focus_window;
        if (!this._popups.has(window))
            this._emit('FrontChanged', '(tssub)', window ? this._describe(window) : [0, '', '', 0, false]);
    }

    _windows() {
        return global.display.get_tab_list(Meta.TabList.NORMAL_ALL, null)
            .filter(window => !this._popups.has(window));
    }

    _Windows() {
        return [this._windows().map(window => this._describe(window))];
    }

    _Activate(handle) {
        const window = this._windows().find(candidate => candidate.get_id() === handle);
        if (window)
            this._main.activateWindow(window);
    }

    _Close(handle) {
        this._windows().find(candidate => candidate.get_id() === handle)
            ?.delete(global.get_current_time());
    }

    _Locate() {
        const [x, y] = global.get_pointer();
        const {layoutManager} = this._main;
        const screen = layoutManager.currentMonitor;
        const area = layoutManager.getWorkAreaForMonitor(screen.index);
        const values = ({x, y, width, height}) => [x, y, width, height];
        return [[x, y], values(screen), values(area)];
    }

    _Present(title, x, y) {
        this._places.set(title, [x, y]);
    }

    // A window of the program's may be a popup. Its title comes later than itself.
    _meet(window) {
        if (window.get_pid() !== this._program.process)
            return;
        const look = () => {
            if (!this._places.has(window.title) || this._popups.has(window))
                return;
            this._popups.add(window);
            this._main.wm.skipNextEffect(window.get_compositor_private());
            this._connect(window, 'unmanaged', () => this._popups.delete(window));
        };
        window.title ? look() : this._connect(window, 'notify::title', look);
    }

    _place(window) {
        if (!this._popups.has(window))
            return;
        window.make_above();
        window.stick();
        window.move_frame(false, ...this._places.get(window.title));
        this._main.wm.skipNextEffect(window.get_compositor_private()); // when it goes
    }

    _Formats(selection) {
        return [this._selection.get_mimetypes(selection)];
    }

    _Receive(selection, format, index, call) {
        // A copy would be open until the message is collected, and the reader would wait for its end.
        const fd = call.get_message().get_unix_fd_list().steal_fds()[index];
        const stream = new Gio.UnixOutputStream({fd, closeFd: true});
        this._selection.transfer_async(selection, format, MAX_BYTES, stream, null, () => {
            stream.close_async(GLib.PRIORITY_DEFAULT, null, null);
        });
    }

    _SetClipboard(bytes) {
        this._selection.set_owner(Meta.SelectionType.SELECTION_CLIPBOARD,
            Meta.SelectionSourceMemory.new(TEXT, new GLib.Bytes(bytes)));
    }
}
