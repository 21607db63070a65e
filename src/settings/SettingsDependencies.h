// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

class ConfigManager;
class EventMonitor;
class IconResolver;
class LocalizationManager;
class NotificationCenter;
class PopupHost;
class ResourceBundle;
class Workspace;

/// What the settings window and its tabs work on. All are borrowed and outlive the window.
struct SettingsDependencies
{
    ConfigManager &config;
    LocalizationManager &localization;
    NotificationCenter &notifications;
    const ResourceBundle &bundle;
    const IconResolver &icons;
    Workspace &workspace;
    EventMonitor &eventMonitor;
    PopupHost &popupHost;
};

}
