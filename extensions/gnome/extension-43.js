// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
//
// For GNOME Shell 43 and 44, which load no modules by themselves; installed as extension.js there.

const {main} = imports.ui;
const {dir} = imports.misc.extensionUtils.getCurrentExtension();

let isEnabled = false;
let service = null;

/* exported init, enable, disable */
function init() {}

async function enable() {
    isEnabled = true;
    const {Service} = await import(dir.get_child('service.js').get_uri());
    if (isEnabled)
        service ??= new Service(main, dir);
}

function disable() {
    isEnabled = false;
    service?.destroy();
    service = null;
}
