// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "icon-import/IconImage.h"
#include "icon-import/SvgImage.h"

#include <QImageReader>
#include <QXmlStreamReader>

using namespace Tessel;
using namespace Qt::StringLiterals;

namespace {

/// What is left of a document refers to nothing but itself.
void checkSvg(const QByteArray &bytes)
{
    QXmlStreamReader reader(selfContainedSvg(bytes));
    reader.setNamespaceProcessing(false);
    while (!reader.atEnd()) {
        reader.readNext();
        Q_ASSERT(!reader.isDTD() && !reader.isProcessingInstruction());
        for (const QXmlStreamAttribute &attribute : reader.attributes()) {
            const auto name = attribute.qualifiedName();
            const auto value = attribute.value();
            Q_ASSERT((name != u"href" && !name.endsWith(u":href")) || value.startsWith(u'#')
                     || value.startsWith(u"data:image/png;base64,"));
        }
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const char *data, size_t size)
{
    QImageReader::setAllocationLimit(64); // MiB
    const QByteArray bytes(data, qsizetype(size));
    checkSvg(bytes);
    // Without a tag none is drawn, which is Qt's work and takes an application.
    static_cast<void>(readIconImage(QByteArray(bytes).replace('<', '>'), 128));
    return 0;
}
