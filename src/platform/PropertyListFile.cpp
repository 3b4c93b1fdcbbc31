#include "platform/Files.h"
#include "platform/PropertyListReader.h"

namespace marquill {

Result<Dictionary> readDictionaryFile(const QString& path) {
    const Result<QByteArray> xml = readFile(path);
    if (!xml) {
        return std::unexpected(xml.error());
    }
    Result<Dictionary> dictionary = readDictionary(*xml);
    if (!dictionary) {
        dictionary.error().path = path;
    }
    return dictionary;
}

}  // namespace marquill
