#pragma once

#include "BinaryPropertyListWriter.h"
#include "Coding.h"
#include "Host.h"
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

namespace velmorath {

/// Writes a keyed archive: a binary property list whose objects name each other by their number. Its
/// root is an array of records.
class KeyedArchiver {
public:
    /// The archive of a list. A record that stands in it twice is written once.
    template <typename Record>
    static std::string archivedData(const std::vector<std::shared_ptr<Record>>& list)
    {
        KeyedArchiver archiver(list.size());
        for (const auto& record : list)
            // Only what somebody else holds, too, may stand here a second time.
            archiver.append(*record, record.use_count() > 1);
        return archiver.finish();
    }

    /// Puts the archive of a list in a file's place. The completion, called once, now or before the next
    /// frame, gets true when it worked; otherwise the old file, if any, is as it was.
    template <typename Record>
    static void archiveRootObject(const std::vector<std::shared_ptr<Record>>& list, const std::string& path,
        const std::function<void(bool)>& completion)
    {
        Host::current().files().replace(path, archivedData(list),
            [completion](const std::optional<Error>& error) { completion(!error); });
    }

    /// Both are called by a record that encodes itself, once for each of its keys.
    void encodeString(const std::optional<std::string>&, std::string_view name);
    void encodeBool(bool, std::string_view name);

private:
    using Reference = BinaryPropertyListWriter::Reference;
    using UID = std::uint32_t;

    /// A key of the records, and the last short text that was written under it: a date is often the same
    /// as in the note before.
    struct Key {
        std::string name;
        Reference reference;
        std::optional<std::string> lastText;
        Reference lastTextUID;
    };
    struct ClassEntry {
        std::string_view name;
        Reference reference;
    };

    explicit KeyedArchiver(std::size_t recordCount);

    void append(const Coding&, bool mayStandTwice);
    std::string finish();

    UID addRecord(const Coding&);
    UID addObject(Reference);
    Key& keyNamed(std::string_view);
    Reference classNamed(std::string_view);

    BinaryPropertyListWriter m_writer;
    Reference m_null;
    Reference m_booleans[2];
    Reference m_classKey;
    std::vector<Key> m_keys;
    std::vector<ClassEntry> m_classes;
    /// What each UID stands for.
    std::vector<Reference> m_objects;
    std::vector<Reference> m_elements;
    std::unordered_map<const Coding*, UID> m_shared;
    /// The record that is being encoded.
    std::vector<Reference> m_recordKeys;
    std::vector<Reference> m_recordValues;
};

} // namespace velmorath
