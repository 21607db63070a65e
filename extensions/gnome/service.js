// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// Serves the desktop to Tessel on the session bus, and to nobody else: to the owner of its name
// once that has attached with a token, and to whom that has told it.

import Gio from 'gi://Gio';
import GLib from 'gi://GLib';

import {Desktop} from './desktop.js';

const PROGRAM = 'com.tessel.app';
const PATH = '/com/tessel/app/Shell';
const INTERFACE = 'com.tessel.app.Shell';
const MIN_TOKEN = 32;
const ERROR = 'org.freedesktop.DBus.Error';

export class Service {
    // `main` is the shell's, `folder` the one with the description of the interface.
    constructor(main, folder) {
        this._main = main;
        this._owner = null; // of the program's name: on the bus, its process, and its token
        this._desktop = null; // while the owner is attached

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
        if (this._desktop)
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
                if (this._owner?.name !== name)
                    return;
                const [{ProcessID, UnixUserID}] = bus.call_finish(result).recursiveUnpack();
                if (UnixUserID !== new Gio.Credentials().get_unix_user())
                    return;
                this._owner.process = ProcessID;
                this._emit('Ready');
            });
    }

    _forget() {
        this._desktop?.destroy();
        this._desktop = null;
        this._owner = null;
    }

    _emit(signal, types = '', ...values) {
        Gio.DBus.session.emit_signal(this._owner.name, PATH, INTERFACE, signal,
            new GLib.Variant(`(${types})`, values));
    }

    _answer(method, [token, ...values], call) {
        if (method === 'Attach')
            this._attach(token, call);
        else if (!this._desktop || token !== this._owner.token)
            call.return_dbus_error(`${ERROR}.AccessDenied`, 'this is for Tessel only');
        else
            this._call(method, values, call);
    }

    _attach(token, call) {
        if (!this._owner?.process || call.get_sender() !== this._owner.name ||
            token.length < MIN_TOKEN) {
            call.return_dbus_error(`${ERROR}.AccessDenied`, `only ${PROGRAM} may attach`);
            return;
        }
        call.return_value(null);
        this._owner.token = token;
        this._desktop?.destroy();
        this._desktop = new Desktop(this._main, this._owner.process,
            (...signal) => this._emit(...signal));
    }

    _call(method, values, call) {
        try {
            const result = this._desktop[method](...values, call);
            const types = call.get_method_info().out_args.map(({signature}) => signature);
            call.return_value(new GLib.Variant(`(${types.join('')})`, result ?? []));
        } catch ({message}) {
            call.return_dbus_error(`${ERROR}.Failed`, message);
        }
    }
}
