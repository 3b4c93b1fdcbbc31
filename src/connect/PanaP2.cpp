#include "connect/PanaP2.h"

#include "connect/P2Date.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/ParallelWork.h"
#include "platform/Subpaths.h"
#include "platform/XmlEncoding.h"

#include <QCoreApplication>

#include <pugixml.hpp>

namespace marquill {

namespace {

void logUnreadable(const QString& path, const QString& error) {
    qCWarning(logConnect).noquote() << u"Error reading xml file at: %1, error: %2"_s.arg(path, error);
}

/// Reads `utf8` where it stands.
Result<void> parse(pugi::xml_document& document, QByteArray& utf8) {
    const pugi::xml_parse_result parsed = document.load_buffer_inplace(
        utf8.data(), static_cast<std::size_t>(utf8.size()), pugi::parse_default, pugi::encoding_utf8);
    if (!parsed) {
        return failure(ErrorCode::malformed, QString::fromUtf8(parsed.description()), {}, parsed.offset);
    }
    for (pugi::xml_node next = document.document_element().next_sibling(); next; next = next.next_sibling()) {
        if (next.type() == pugi::node_element) {
            return failure(
                ErrorCode::malformed,
                QCoreApplication::translate("PanaP2", "There is more than one element at the top."), {},
                next.offset_debug());
        }
    }
    return {};
}

/// The text of the last CreationDate; none when there is none.
std::optional<QString> lastCreationDate(const pugi::xml_document& document) {
    static const pugi::xpath_query query("(.//*[local-name()='CreationDate'])[last()]");
    static const pugi::xpath_query text("string(.)");
    const pugi::xpath_node found = query.evaluate_node(document);
    if (!found) {
        return std::nullopt;
    }
    return QString::fromStdString(text.evaluate_string(found));
}

}  // namespace

std::optional<P2Clip> PanaP2::xmlClipFromFile(const QString& path) {
    if (path.isEmpty()) {
        return std::nullopt;
    }
    const Result<QByteArray> bytes = readFile(path);
    Result<XmlText> xml = bytes ? decodeXml(*bytes) : std::unexpected(bytes.error());
    pugi::xml_document document;
    const Result<void> parsed = xml ? parse(document, xml->utf8) : std::unexpected(xml.error());
    if (!parsed) {
        logUnreadable(path, parsed.error().message);
        return std::nullopt;
    }
    const std::optional<QString> text = lastCreationDate(document);
    if (!text) {
        return std::nullopt;
    }
    const std::optional<Date> date = p2Date(*text);
    if (!date) {
        qCWarning(logConnect).noquote()
            << u"Error reading date time in xml file at: %1, str: %2"_s.arg(path, p2DateText(*text));
        return std::nullopt;
    }
    return P2Clip{.p2_fileName = withoutPathExtension(lastPathComponent(path)), .p2_creationDate = *date};
}

std::vector<P2Clip> PanaP2::getP2XMLClipsAtPath(const QString& folder, const Progress& progress) {
    Result<QStringList> paths = subpathsAtPath(folder, progress);
    if (!paths) {
        return {};
    }
    paths->removeIf([](const QString& path) { return pathExtension(path) != "XML"_L1; });
    std::vector<std::optional<P2Clip>> found(static_cast<std::size_t>(paths->size()));
    const auto read = [&](qsizetype index) {
        found[static_cast<std::size_t>(index)] = xmlClipFromFile(joinPath(folder, paths->at(index)));
    };
    std::vector<P2Clip> clips;
    if (!forEachInParallel(paths->size(), read, progress)) {
        return clips;
    }
    for (std::optional<P2Clip>& clip : found) {
        if (clip) {
            clips.push_back(*std::move(clip));
        }
    }
    return clips;
}

}  // namespace marquill
