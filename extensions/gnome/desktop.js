// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// What the shell lets no other program do. Nothing is shown or kept here. The methods with capital
// letters are those of com.tessel.app.Shell.xml, which says what they do.

import Clutter from 'gi://Clutter';
import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';
import St from 'gi://St';

// Its own library since GLib 2.80.
const OutputStream = await import('gi://GioUnix').then(
    ({default: GioUnix}) => GioUnix.OutputStream, () => Gio.UnixOutputStream);

const TEXT = 'text/plain;charset=utf-8';
const NO_WINDOW = [0, '', '', 0, false];
const {NONE} = Meta.KeyBindingAction;
const {SELECTION_PRIMARY, SELECTION_CLIPBOARD} = Meta.SelectionType;
const {SHIFT_MASK, CONTROL_MASK, MOD1_MASK, MOD4_MASK, MOD5_MASK} = Clutter.ModifierType;
const HELD = SHIFT_MASK | CONTROL_MASK | MOD1_MASK | MOD4_MASK | MOD5_MASK;

export class Desktop {
    // `main` is the shell's; `emit` tells the program, whose process is given.
    constructor(main, process, emit) {
        this._main = main;
        this._process = process;
        this._emit = emit;
        this._action = NONE; // of the trigger
        this._windows = new Set(); // the program's
        this._places = new Map(); // of its popups, by title
        this._selection = global.display.get_selection();
        const backend = global.stage.context?.get_backend() ?? Clutter.get_default_backend();
        this._keyboard = backend.get_default_seat().create_virtual_device(
            Clutter.InputDeviceType.KEYBOARD_DEVICE);
        this._listen();
        for (const type of [SELECTION_PRIMARY, SELECTION_CLIPBOARD])
            this._tellSelection(type, this._selection.get_mimetypes(type));
        this._tellFront();
    }

    _listen() {
        this._selection.connectObject('owner-changed', (_, type, source) =>
            this._tellSelection(type, source?.get_mimetypes() ?? []), this);
        global.display.connectObject(
            'accelerator-activated', (_, action) => {
                if (action === this._action)
                    this._emit('Triggered');
            },
            'notify::focus-window', () => this._tellFront(),
            'window-created', (_, window) => this._meet(window), this);
        global.stage.connectObject('captured-event', (_, event) => {
            if (event.type() === Clutter.EventType.BUTTON_PRESS &&
                this._isPopup(global.display.focus_window))
                this._emit('Clicked');
            return Clutter.EVENT_PROPAGATE;
        }, this);
        global.window_manager.connectObject('map', (_, actor) => this._place(actor.metaWindow),
            this);
    }

    destroy() {
        this.SetTrigger('');
        for (const object of [this._selection, global.display, global.stage,
            global.window_manager, ...this._windows])
            object.disconnectObject(this);
        this._keyboard = null;
    }

    SetTrigger(accelerator) {
        if (this._action !== NONE)
            global.display.ungrab_accelerator(this._action);
        this._action = accelerator ? global.display.grab_accelerator(accelerator,
            Meta.KeyBindingFlags.IGNORE_AUTOREPEAT) : NONE;
        if (this._action !== NONE)
            this._main.wm.allowKeybinding(Meta.external_binding_name_for_action(this._action),
                Shell.ActionMode.NORMAL);
        return [this._action !== NONE];
    }

    HoldsModifiers() {
        return [(global.get_pointer()[2] & HELD) !== 0];
    }

    PressKeys(keys) {
        const send = (key, state) =>
            this._keyboard.notify_key(GLib.get_monotonic_time(), key, state);
        keys.forEach(key => send(key, Clutter.KeyState.PRESSED));
        keys.reverse().forEach(key => send(key, Clutter.KeyState.RELEASED));
    }

    Type(text) {
        const {inputMethod} = this._main;
        const isTyped = inputMethod.currentFocus !== null;
        if (isTyped)
            inputMethod.commit(text);
        const type = global.display.focus_window?.get_client_type();
        return [isTyped, type === Meta.WindowClientType.X11];
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

    _find(handle) {
        const window = this._list().find(candidate => candidate.get_id() === handle);
        if (!window)
            throw new Error('there is no such window');
        return window;
    }

    Windows() {
        return [this._list().map(window => this._describe(window))];
    }

    Activate(handle) {
        this._main.activateWindow(this._find(handle));
    }

    Close(handle) {
        this._find(handle).delete(global.get_current_time());
    }

    // Of the program's pixels: without fractional scaling the shell counts those of the screen.
    _scale() {
        return St.ThemeContext.get_for_stage(global.stage).scaleFactor;
    }

    Locate() {
        const {layoutManager} = this._main;
        const [x, y] = global.get_pointer();
        const screen = layoutManager.currentMonitor;
        const area = layoutManager.getWorkAreaForMonitor(screen.index);
        const numbers = [x, y, ...[screen, area].flatMap(r => [r.x, r.y, r.width, r.height])];
        return [numbers.map(number => number / this._scale())];
    }

    Present(title, x, y) {
        this._places.set(title, [x, y]);
        this._windows.forEach(window => window.title === title && this._place(window));
    }

    // The title, by which popups are known, comes later than the window.
    _meet(window) {
        if (window.get_pid() !== this._process)
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
        // By itself it gets the keyboard only when the user has done nothing since.
        window.activate(global.display.get_current_time_roundtrip());
    }

    _tellSelection(type, formats) {
        this._emit('SelectionChanged', 'uas', type, formats);
    }

    Formats(type) {
        return [this._selection.get_mimetypes(type)];
    }

    Receive(type, format, index, call) {
        // Copies of the pipe's end would stay open until the message is collected.
        const fd = call.get_message().get_unix_fd_list().steal_fds()[index];
        const stream = new OutputStream({fd, closeFd: true});
        // With a size, what the pipe does not take at once would be lost. The reader ends the rest.
        this._selection.transfer_async(type, format, -1, stream, null,
            () => stream.close_async(GLib.PRIORITY_DEFAULT, null, null));
    }

    SetClipboard(bytes) {
        this._selection.set_owner(SELECTION_CLIPBOARD,
            Meta.SelectionSourceMemory.new(TEXT, new GLib.Bytes(bytes)));
    }
}
