#pragma once

#include "BinaryPropertyListWriter.h"
#include <string>
#include <utility>
#include <vector>

namespace velmorath {

/// Puts archives together by hand, also such as no archiver would write.
class ArchiveBuilder {
public:
    using Reference = BinaryPropertyListWriter::Reference;
    using Entries = std::vector<std::pair<std::string, Reference>>;

    BinaryPropertyListWriter writer;
    std::vector<Reference> objects{writer.addString("$null")};
    std::string archiver = "NSKeyedArchiver";
    Reference version = writer.addInteger(100000);

    std::uint32_t add(Reference object)
    {
        objects.push_back(object);
        return static_cast<std::uint32_t>(objects.size() - 1);
    }

    Reference dictionary(const Entries& entries)
    {
        std::vector<Reference> keys;
        std::vector<Reference> values;
        for (auto& [key, value] : entries) {
            keys.push_back(writer.addString(key));
            values.push_back(value);
        }
        return writer.addDictionary(keys, values);
    }

    std::uint32_t addInstance(const std::string& className, Entries entries)
    {
        auto classUID = add(dictionary({{"$classname", writer.addString(className)}}));
        entries.emplace_back("$class", writer.addUID(classUID));
        return add(dictionary(entries));
    }

    std::uint32_t addArray(const std::vector<std::uint32_t>& uids, const std::string& className = "NSArray")
    {
        std::vector<Reference> elements;
        for (auto uid : uids)
            elements.push_back(writer.addUID(uid));
        return addInstance(className, {{"NS.objects", writer.addArray(elements)}});
    }

    std::string finish(std::uint32_t root)
    {
        auto top = dictionary({{"root", writer.addUID(root)}});
        return writer.finish(dictionary({{"$version", version}, {"$archiver", writer.addString(archiver)},
            {"$top", top}, {"$objects", writer.addArray(objects)}}));
    }
};

} // namespace velmorath
