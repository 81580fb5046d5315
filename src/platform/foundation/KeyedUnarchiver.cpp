#include "KeyedUnarchiver.h"
#include "Unicode.h"
#include <algorithm>

namespace velmorath {
namespace {

using Kind = BinaryPropertyListReader::Kind;

constexpr std::int64_t nullUID = 0;

// A record as it is in memory, and the value that refers to it from then on.
constexpr std::uint64_t costPerObject = 152;
// A pointer in an array, one in the list that is made of it, and what those waste.
constexpr std::uint64_t costPerElement = 40;
// Takes no memory, but time.
constexpr std::uint64_t costPerKey = 8;

constexpr std::uint32_t notMet = 0;
constexpr std::uint32_t beingDecoded = 1;
constexpr std::uint32_t firstPlace = 2;

// A line break in a file must not begin a line of its own in the log.
std::string onOneLine(std::string_view text)
{
    std::string line;
    while (!text.empty()) {
        auto character = takeCharacter(text);
        bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0) || character == 0x2028
            || character == 0x2029;
        appendUTF8(line, isControl ? U' ' : character);
    }
    return line;
}

} // namespace

Result<std::shared_ptr<Object>> KeyedUnarchiver::unarchiveTopLevelObject(std::string_view bytes)
{
    auto plist = Plist::open(bytes);
    if (!plist)
        return plist.error();
    auto archive = plist->root();
    if (!Plist::isString(plist->value(archive, "$archiver"), "NSKeyedArchiver"))
        return Error{"The data is not a keyed archive"};
    auto version = plist->value(archive, "$version");
    if (version.kind != Kind::integer || version.integer != 100000)
        return Error{"The archive has an unknown version"};
    auto objects = plist->value(archive, "$objects");
    auto root = plist->value(plist->value(archive, "$top"), "root");
    if (objects.kind != Kind::array || root.kind != Kind::uid)
        return Error{"The archive has no root"};

    KeyedUnarchiver unarchiver(*plist, objects);
    auto value = unarchiver.decodeReference(root);
    if (unarchiver.m_error)
        return *unarchiver.m_error;
    return value;
}

KeyedUnarchiver::KeyedUnarchiver(const Plist& plist, const Plist::Object& objects)
    : m_plist(plist)
    , m_objects(objects)
    , m_places(objects.count, notMet)
    , m_budget(plist.size())
{
    spend(objects.count * sizeof m_places[0]);
}

std::optional<std::string> KeyedUnarchiver::decodeString(std::string_view key)
{
    auto uid = entry(m_record, key);
    if (uid.kind != Kind::uid || uid.integer == nullUID)
        return {};
    auto object = objectAt(uid);
    if (object.kind == Kind::dictionary && classOf(object) && isStringClass()) {
        auto characters = entry(object, "NS.string");
        object = characters.kind == Kind::invalid ? entry(object, "NS.bytes") : characters;
        if (object.kind == Kind::uid)
            object = objectAt(object);
        if (object.kind != Kind::string && object.kind != Kind::data)
            fail("The archive holds a text without characters");
    } else if (object.kind != Kind::string) {
        return {};
    }
    auto text = Plist::string(object);
    return spend(ReadingBudget::costOf(text)) ? std::optional(std::move(text)) : std::nullopt;
}

bool KeyedUnarchiver::decodeBool(std::string_view key)
{
    auto value = entry(m_record, key);
    if (value.kind == Kind::uid)
        value = objectAt(value);
    switch (value.kind) {
    case Kind::boolean:
        return value.boolean;
    case Kind::integer:
        return value.integer != 0;
    case Kind::real:
        return value.real != 0;
    default:
        return value.kind == Kind::wideInteger;
    }
}

std::shared_ptr<Object> KeyedUnarchiver::decodeReference(const Plist::Object& uid)
{
    constexpr int deepest = 100;
    if (m_error)
        return {};
    if (uid.kind != Kind::uid || static_cast<std::uint64_t>(uid.integer) >= m_objects.count)
        return fail("The archive refers to an object that is not there");
    if (uid.integer == nullUID)
        return {};
    auto& place = m_places[static_cast<std::size_t>(uid.integer)];
    if (place == beingDecoded)
        return fail("The archive holds an object that contains itself");
    if (place != notMet)
        return m_values[place - firstPlace];
    if (m_depth >= deepest)
        return fail("The archive is nested too deep");
    if (!spend(costPerObject))
        return {};

    place = beingDecoded;
    ++m_depth;
    auto value = decodeObject(objectAt(uid));
    --m_depth;
    m_values.push_back(value);
    place = static_cast<std::uint32_t>(m_values.size() - 1) + firstPlace;
    return value;
}

std::shared_ptr<Object> KeyedUnarchiver::decodeObject(const Plist::Object& object)
{
    switch (object.kind) {
    case Kind::dictionary:
        return decodeInstance(object);
    case Kind::invalid:
    case Kind::null:
    case Kind::uid:
    case Kind::array:
        return fail("The archive holds an object that cannot be read");
    default:
        return std::make_shared<Object>();
    }
}

std::shared_ptr<Object> KeyedUnarchiver::decodeInstance(const Plist::Object& record)
{
    if (!classOf(record))
        return fail("The archive holds an object without a class");
    if (m_decoder) {
        m_record = record;
        return (*m_decoder)(*this);
    }
    if (isOneOf({"NSArray", "NSMutableArray"}))
        return decodeElements(record, "NS.objects");
    if (!isStringClass()
        && !isOneOf({"NSDictionary", "NSMutableDictionary", "NSSet", "NSMutableSet", "NSDate", "NSData",
            "NSMutableData", "NSNull"}))
        return fail(
            "The archive holds an object of the unknown class " + onOneLine(Plist::string(m_className)));
    // The contents are of no use, but an unknown class among them counts as anywhere else.
    for (auto key : {"NS.keys", "NS.objects"}) {
        if (entry(record, key).kind != Kind::invalid)
            decodeElements(record, key);
    }
    return std::make_shared<Object>();
}

std::shared_ptr<Object> KeyedUnarchiver::decodeElements(const Plist::Object& record, std::string_view key)
{
    auto elements = entry(record, key);
    if (elements.kind != Kind::array)
        return fail("The archive holds an array without elements");
    if (!spend(elements.count * costPerElement))
        return {};
    auto array = std::make_shared<Array>();
    array->elements.reserve(elements.count);
    for (std::size_t index = 0; index < elements.count && !m_error; ++index)
        array->elements.push_back(decodeReference(m_plist.object(m_plist.reference(elements, index))));
    return array;
}

bool KeyedUnarchiver::classOf(const Plist::Object& record)
{
    auto uid = entry(record, "$class");
    if (uid.kind != Kind::uid)
        return false;
    // Mostly the same one as last time.
    if (uid.integer != m_classUID) {
        m_classUID = uid.integer;
        m_className = entry(objectAt(uid), "$classname");
        bool isAffordable = spend(m_className.bytes.size());
        m_decoder = isAffordable ? Registry<Decoder>::find(Plist::string(m_className)) : nullptr;
    }
    return m_className.kind == Kind::string;
}

bool KeyedUnarchiver::isOneOf(std::initializer_list<std::string_view> classes) const
{
    return std::any_of(classes.begin(), classes.end(),
        [this](std::string_view name) { return Plist::isString(m_className, name); });
}

BinaryPropertyListReader::Object KeyedUnarchiver::entry(const Plist::Object& record, std::string_view name)
{
    if (record.kind != Kind::dictionary)
        return {};
    auto key =
        std::find_if(m_keys.begin(), m_keys.end(), [&](const Key& known) { return known.name == name; });
    if (key == m_keys.end())
        key = m_keys.insert(key, Key{std::string(name), 0, std::string::npos});

    auto keyReference = [&](std::size_t index) { return m_plist.reference(record, index); };
    if (key->index >= record.count || keyReference(key->index) != key->reference) {
        std::size_t index = 0;
        while (index < record.count && !Plist::isString(m_plist.object(keyReference(index)), name))
            ++index;
        if (!spend(index * costPerKey) || index == record.count)
            return {};
        key->index = index;
        key->reference = keyReference(index);
    }
    return m_plist.object(m_plist.reference(record, record.count + key->index));
}

// An error where a reference leads nowhere.
BinaryPropertyListReader::Object KeyedUnarchiver::objectAt(const Plist::Object& uid)
{
    Plist::Object object;
    if (static_cast<std::uint64_t>(uid.integer) < m_objects.count)
        object = m_plist.object(m_plist.reference(m_objects, static_cast<std::size_t>(uid.integer)));
    if (object.kind == Kind::invalid)
        fail("The archive refers to an object that is not there");
    return object;
}

bool KeyedUnarchiver::spend(std::uint64_t cost)
{
    bool isAffordable = m_budget.spend(cost);
    if (!isAffordable)
        fail("The archive repeats its contents too often");
    return isAffordable;
}

std::nullptr_t KeyedUnarchiver::fail(std::string description)
{
    if (!m_error)
        m_error = Error{std::move(description)};
    return nullptr;
}

} // namespace velmorath
