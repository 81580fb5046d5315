#pragma once

#include "BinaryPropertyListReader.h"
#include "Object.h"
#include "ReadingBudget.h"
#include "Registry.h"
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace velmorath {

/// Reads a keyed archive. The bytes may be hostile: the answer is a value or an error, and time and
/// memory stay within a small multiple of their length.
class KeyedUnarchiver {
public:
    /// What an array of an archive becomes. Null is null, and what can be decoded but has no use here (a
    /// text, a number, a dictionary) is an object and nothing more.
    struct Array : Object {
        std::vector<std::shared_ptr<Object>> elements;
    };

    /// Makes an object from an archived record, whose entries it asks for with the decode operations.
    using Decoder = std::function<std::shared_ptr<Object>(KeyedUnarchiver&)>;

    /// Names the class that stands for an archived class name, for the whole program.
    static void setClass(std::string className, Decoder decoder)
    {
        Registry<Decoder>::enter(std::move(className), std::move(decoder));
    }

    /// The root of an archive. An object that is referred to twice is decoded once and shared. An error
    /// when the bytes are no keyed archive, are damaged, or lead to an object of an unknown class.
    static Result<std::shared_ptr<Object>> unarchiveTopLevelObject(std::string_view bytes);

    /// Nothing when the record being decoded has no such key, or null or something else under it: an
    /// object of whatever class is not looked into.
    std::optional<std::string> decodeString(std::string_view key);

    /// True for a boolean that is, or a number that is not zero, in the record being decoded or referred to
    /// by it.
    bool decodeBool(std::string_view key);

private:
    using Plist = BinaryPropertyListReader;

    /// Where a key was found last: equal keys of different records are mostly one string at one place.
    struct Key {
        std::string name;
        std::uint64_t reference;
        std::size_t index;
    };

    KeyedUnarchiver(const Plist&, const Plist::Object& objects);

    std::shared_ptr<Object> decodeReference(const Plist::Object& uid);
    std::shared_ptr<Object> decodeObject(const Plist::Object&);
    std::shared_ptr<Object> decodeInstance(const Plist::Object& record);
    std::shared_ptr<Object> decodeElements(const Plist::Object& record, std::string_view key);

    /// Finds out the class of a record. False when it has none.
    bool classOf(const Plist::Object& record);
    bool isOneOf(std::initializer_list<std::string_view> classes) const;
    bool isStringClass() const { return isOneOf({"NSString", "NSMutableString"}); }
    Plist::Object entry(const Plist::Object& record, std::string_view name);
    Plist::Object objectAt(const Plist::Object& uid);
    bool spend(std::uint64_t cost);
    std::nullptr_t fail(std::string description);

    const Plist& m_plist;
    Plist::Object m_objects;
    Plist::Object m_record;
    std::vector<Key> m_keys;
    /// The class that was found last, and what makes objects of it.
    std::int64_t m_classUID = -1;
    Plist::Object m_className;
    const Decoder* m_decoder = nullptr;
    /// For each archived object: not met yet, being decoded, or where its value is.
    std::vector<std::uint32_t> m_places;
    std::deque<std::shared_ptr<Object>> m_values;
    ReadingBudget m_budget;
    int m_depth = 0;
    std::optional<Error> m_error;
};

} // namespace velmorath
