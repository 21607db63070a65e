// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// What Tessel asks of the shell, which has no protocols for it: com.tessel.app.Shell.xml says what
// each method does. Nothing is shown or kept here.

import Clutter from 'gi://Clutter';
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';
import St from 'gi://St';

// Its own library since GLib 2.80.
const OutputStream = await import('gi://GioUnix').then(
    ({default: GioUnix}) => GioUnix.OutputStream, () => Gio.UnixOutputStream);

const PROGRAM = 'com.tessel.app';
const PATH = '/com/tessel/app/Shell';
const INTERFACE = 'com.tessel.app.Shell';
const TEXT = 'text/plain;charset=utf-8';
const MAX_BYTES = 64 * 1024 * 1024 + 1;
const MIN_TOKEN = 32;
const {PRESSED, RELEASED} = Clutter.KeyState;
const {SHIFT_MASK, CONTROL_MASK, MOD1_MASK, MOD4_MASK, MOD5_MASK} = Clutter.ModifierType;
const HELD = SHIFT_MASK | CONTROL_MASK | MOD1_MASK | MOD4_MASK | MOD5_MASK;
const NO_WINDOW = [0, '', '', 0, false];

export class Service {
    // `main` is the shell's, `folder` the one with the description of the interface.
    constructor(main, folder) {
        this._main = main;
        this._owner = null; // of the program's name: on the bus, its process, and its token
        this._keyboard = null;
        this._action = Meta.KeyBindingAction.NONE;
        this._windows = new Set(); // the program's
        this._places = new Map(); // of its popups, by title
        this._selection = global.display.get_selection();

        const [, xml] = folder.get_child(`${INTERFACE}.xml`).load_contents(null);
        this._object = Gio.DBusExportedObject.wrapJSObject(new TextDecoder().decode(xml), this);
        for (const {name} of this._object.get_info().methods)
            this[`${name}Async`] = (values, call) => this._answer(name, values, call);
        this._object.export(Gio.DBus.session, PATH);
        this._watch = Gio.bus_watch_name(Gio.BusType.SESSION, PROGRAM,
            Gio.BusNameWatcherFlags.NONE, (bus, _, owner) => this._greet(bus, owner),
            () => this._forget());
    }

    destroy() {
        if (this._owner?.token)
            this._emit('Gone');
        this._forget();
        Gio.bus_unwatch_name(this._watch);
        this._object.unexport();
    }

    // Asks who owns the program's name to attach, if it is the same user's.
    _greet(bus, name) {
        this._forget();
        this._owner = {name, process: 0, token: null};
        bus.call('org.freedesktop.DBus', '/', 'org.freedesktop.DBus', 'GetConnectionCredentials',
            new GLib.Variant('(s)', [name]), null, Gio.DBusCallFlags.NONE, -1, null, (_, result) => {
                const [{ProcessID, UnixUserID}] = bus.call_finish(result).recursiveUnpack();
                if (this._owner?.name !== name || UnixUserID !== new Gio.Credentials().get_unix_user())
                    return;
                this._owner.process = ProcessID;
                this._emit('Ready');
            });
    }

    _emit(signal, types = '', ...values) {
        Gio.DBus.session.emit_signal(this._owner.name, PATH, INTERFACE, signal,
            new GLib.Variant(`(${types})`, values));
    }

    _answer(method, [token, ...values], call) {
        try {
            const isTrue = method === 'Attach' ? token.length >= MIN_TOKEN &&
                this._owner?.process && call.get_sender() === this._owner.name
                : token === this._owner?.token;
            if (!isTrue)
                throw new Error('this is for Tessel only');
            const result = this[`_${method}`](...values, call);
            const types = call.get_method_info().out_args.map(({signature}) => signature);
            call.return_value(new GLib.Variant(`(${types.join('')})`, result ?? []));
            if (method === 'Attach')
                this._begin(token);
        } catch ({message}) {
            call.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied', message);
        }
    }

    _Attach() {
        this._end();
    }

    _begin(token) {
        this._owner.token = token;
        const backend = global.stage.context?.get_backend() ?? Clutter.get_default_backend();
        this._keyboard = backend.get_default_seat().create_virtual_device(
            Clutter.InputDeviceType.KEYBOARD_DEVICE);
        const tellSelection = (type, formats) =>
            this._emit('SelectionChanged', 'uas', type, formats);
        this._selection.connectObject('owner-changed', (_, type, source) =>
            tellSelection(type, source?.get_mimetypes() ?? []), this);
        global.display.connectObject(
            'accelerator-activated', (_, action) => {
                if (action === this._action)
                    this._emit('Triggered');
            },
            'notify::focus-window', () => this._tellFront(),
            'window-created', (_, window) => this._meet(window), this);
        global.window_manager.connectObject('map', (_, actor) => this._place(actor.metaWindow),
            this);
        for (const type of [Meta.SelectionType.SELECTION_PRIMARY,
            Meta.SelectionType.SELECTION_CLIPBOARD])
            tellSelection(type, this._selection.get_mimetypes(type));
        this._tellFront();
    }

    _end() {
        this._SetTrigger('');
        for (const object of [this._selection, global.display, global.window_manager,
            ...this._windows])
            object.disconnectObject(this);
        this._windows.clear();
        this._places.clear();
        this._keyboard = null;
    }

    _forget() {
        this._end();
        this._owner = null;
    }

    _SetTrigger(accelerator) {
        const {NONE} = Meta.KeyBindingAction;
        if (this._action !== NONE)
            global.display.ungrab_accelerator(this._action);
        this._action = accelerator ? global.display.grab_accelerator(accelerator,
            Meta.KeyBindingFlags.IGNORE_AUTOREPEAT) : NONE;
        if (this._action !== NONE)
            this._main.wm.allowKeybinding(Meta.external_binding_name_for_action(this._action),
                Shell.ActionMode.NORMAL);
        return [this._action !== NONE];
    }

    _HoldsModifiers() {
        return [(global.get_pointer()[2] & HELD) !== 0];
    }

    _PressKeys(keys) {
        const send = (key, state) =>
            this._keyboard.notify_key(GLib.get_monotonic_time(), key, state);
        keys.forEach(key => send(key, PRESSED));
        keys.reverse().forEach(key => send(key, RELEASED));
    }

    _isPopup(window) {
        return this._windows.has(window) && this._places.has(window.title);
    }

    _describe(window) {
        return [window.get_id(), window.get_wm_class() ?? '', window.get_title() ?? '',
            window.get_pid(), window.minimized];
    }

    _tellFront() {
        const window = global.display.focus_window;
        if (!this._isPopup(window))
            this._emit('FrontChanged', '(tssub)', window ? this._describe(window) : NO_WINDOW);
    }

    _list() {
        return global.display.get_tab_list(Meta.TabList.NORMAL_ALL, null)
            .filter(window => !this._isPopup(window));
    }

    _Windows() {
        return [this._list().map(window => this._describe(window))];
    }

    _find(handle) {
        const window = this._list().find(candidate => candidate.get_id() === handle);
        if (!window)
            throw new Error('there is no such window');
        return window;
    }

    _Activate(handle) {
        this._main.activateWindow(this._find(handle));
    }

    _Close(handle) {
        this._find(handle).delete(global.get_current_time());
    }

    // Of the program's pixels: without fractional scaling the shell counts those of the screen.
    _scale() {
        return St.ThemeContext.get_for_stage(global.stage).scaleFactor;
    }

    _Locate() {
        const {layoutManager} = this._main;
        const [x, y] = global.get_pointer();
        const screen = layoutManager.currentMonitor;
        const area = layoutManager.getWorkAreaForMonitor(screen.index);
        const numbers = [x, y, ...[screen, area].flatMap(r => [r.x, r.y, r.width, r.height])];
        return [numbers.map(number => number / this._scale())];
    }

    _Present(title, x, y) {
        this._places.set(title, [x, y]);
        this._windows.forEach(window => this._place(window));
    }

    // The title, by which popups are known, comes later than the window.
    _meet(window) {
        if (window.get_pid() !== this._owner.process)
            return;
        this._windows.add(window);
        const look = () => {
            if (this._isPopup(window))
                this._main.wm.skipNextEffect(window.get_compositor_private());
        };
        window.connectObject('notify::title', look,
            'unmanaged', () => this._windows.delete(window), this);
        look();
    }

    _place(window) {
        if (!this._isPopup(window) || !window.get_compositor_private())
            return;
        window.make_above();
        window.stick();
        const [x, y] = this._places.get(window.title).map(number => number * this._scale());
        window.move_frame(true, x, y); // the user's own moves may end beyond the edge
        this._main.wm.skipNextEffect(window.get_compositor_private()); // when it goes
    }

    _Formats(type) {
        return [this._selection.get_mimetypes(type)];
    }

    _Receive(type, format, index, call) {
        // Copies of the pipe's end would stay open until the message is collected.
        const fd = call.get_message().get_unix_fd_list().steal_fds()[index];
        const stream = new OutputStream({fd, closeFd: true});
        this._selection.transfer_async(type, format, MAX_BYTES, stream, null,
            () => stream.close_async(GLib.PRIORITY_DEFAULT, null, null));
    }

    _SetClipboard(bytes) {
        this._selection.set_owner(Meta.SelectionType.SELECTION_CLIPBOARD,
            Meta.SelectionSourceMemory.new(TEXT, new GLib.Bytes(bytes)));
    }
}
