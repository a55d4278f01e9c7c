#include "Xml.h"

#include "Failure.h"

#include <QFile>

namespace FillTemplate {

XmlPart::XmlPart(const QString &path)
    : m_path(path)
    , m_document(std::make_unique<pugi::xml_document>())
{
    const pugi::xml_parse_result result =
        m_document->load_file(QFile::encodeName(path).constData(), (pugi::parse_full | pugi::parse_ws_pcdata) & ~pugi::parse_eol);
    if (!result)
        throw Failure{LoadFailed, QStringLiteral("%1 cannot be read: %2").arg(path, Text(result.description()))};
    m_encoding = result.encoding;
}

void XmlPart::Save()
{
    unsigned int flags = pugi::format_raw;
    if (m_encoding != pugi::encoding_utf8)
        flags |= pugi::format_write_bom; // without it only UTF-8 is recognised
    if (!m_document->save_file(QFile::encodeName(m_path).constData(), "", flags, m_encoding))
        throw Failure{OutputFailed, QStringLiteral("%1 cannot be written").arg(m_path)};
}

QString Text(const char *utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace FillTemplate
