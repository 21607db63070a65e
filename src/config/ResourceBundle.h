// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

namespace Tessel {

/// The folder of images that is installed with the program.
class ResourceBundle
{
public:
    explicit ResourceBundle(QString folder);

    /// The program's own bundle, looked for beside the installed program, then in the build folder.
    /// Ends the program with a message when there is neither.
    static const ResourceBundle &module();

    [[nodiscard]] const QString &folder() const { return m_folder; }

    /// Path of a resource, empty when the bundle has no such file.
    [[nodiscard]] QString path(const QString &name, const QString &extension) const;

    /// An image of the bundle by its name without extension; null when there is none.
    [[nodiscard]] QImage iconImage(const QString &name) const;

    /// Names, without extension, of the icons that the user may pick, in code-point order.
    [[nodiscard]] QStringList iconSetNames() const;

private:
    QString m_folder;
};

}
