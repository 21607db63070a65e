// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// For GNOME Shell 45 and later.

import * as Main from 'resource:///org/gnome/shell/ui/main.js';
import {Extension} from 'resource:///org/gnome/shell/extensions/extension.js';

import {Service} from './service.js';

export default class TesselExtension extends Extension {
    enable() {
        this._service = new Service(Main, this.dir);
    }

    disable() {
        this._service.destroy();
        this._service = null;
    }
}
