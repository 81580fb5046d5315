#include "KeyedUnarchiver.h"
#include <algorithm>
#include <map>
#include <set>

namespace velmorath {
namespace {

using Kind = BinaryPropertyListReader::Kind;

constexpr std::int64_t nullUID = 0;

// What may be spent on decoding: an honest archive has at least one byte for each byte of text, and
// for each element of an array. Only what is referred to again and again costs more than its bytes.
constexpr std::size_t budgetPerByte = 32;
constexpr std::size_t smallestBudget = std::size_t(1) << 20;
constexpr std::size_t costPerElement = 16;

constexpr std::uint32_t notMet = 0;
constexpr std::uint32_t beingDecoded = 1;
constexpr std::uint32_t firstPlace = 2;

std::map<std::string, KeyedUnarchiver::Decoder, std::less<>>& decoders()
{
    static std::map<std::string, KeyedUnarchiver::Decoder, std::less<>> decoders;
    return decoders;
}

bool isOtherKnownClass(std::string_view name)
{
    static const std::set<std::string_view> names{"NSDictionary", "NSMutableDictionary", "NSSet",
        "NSMutableSet", "NSDate", "NSData", "NSMutableData", "NSNull"};
    return names.contains(name);
}

} // namespace

void KeyedUnarchiver::setClass(std::string className, Decoder decoder)
{
    decoders().insert_or_assign(std::move(className), std::move(decoder));
}

Result<ArchivedValue> KeyedUnarchiver::unarchiveTopLevelObject(std::string_view bytes)
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
    , m_budget(smallestBudget + plist.size() * budgetPerByte)
{
}

std::optional<std::string> KeyedUnarchiver::decodeString(std::string_view key)
{
    auto uid = entry(m_record, key);
    if (uid.kind != Kind::uid || uid.integer == nullUID)
        return {};
    // Most texts are used once: they need not be remembered.
    auto object = objectAt(uid);
    if (object.kind == Kind::string)
        return text(object);
    auto value = decodeReference(uid);
    return value.string() && spend(value.string()->size()) ? std::optional(*value.string()) : std::nullopt;
}

bool KeyedUnarchiver::decodeBool(std::string_view key)
{
    auto value = entry(m_record, key);
    return value.kind == Kind::boolean && value.boolean;
}

ArchivedValue KeyedUnarchiver::decodeReference(const Plist::Object& uid)
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

    place = beingDecoded;
    ++m_depth;
    auto value = decodeObject(objectAt(uid));
    --m_depth;
    m_values.push_back(value);
    place = static_cast<std::uint32_t>(m_values.size() - 1) + firstPlace;
    return value;
}

ArchivedValue KeyedUnarchiver::decodeObject(const Plist::Object& object)
{
    switch (object.kind) {
    case Kind::boolean:
        return object.boolean;
    case Kind::integer:
        return object.integer;
    case Kind::real:
        return object.real;
    case Kind::string:
        return text(object);
    case Kind::data:
    case Kind::date:
        return ArchivedValue::Other{};
    case Kind::dictionary:
        return decodeInstance(object);
    default:
        return fail("The archive holds an object that cannot be read");
    }
}

ArchivedValue KeyedUnarchiver::decodeInstance(const Plist::Object& record)
{
    auto* decode = decodeForClass(entry(record, "$class"));
    return decode ? (*decode)(record) : ArchivedValue();
}

ArchivedValue KeyedUnarchiver::decodeElements(const Plist::Object& record, std::string_view key)
{
    auto elements = entry(record, key);
    if (elements.kind != Kind::array)
        return fail("The archive holds an array without elements");
    if (!spend(elements.count * costPerElement))
        return {};
    ArchivedValue::Array values;
    values.reserve(elements.count);
    for (std::size_t index = 0; index < elements.count && !m_error; ++index)
        values.push_back(decodeReference(m_plist.object(m_plist.reference(elements, index))));
    return values;
}

ArchivedValue KeyedUnarchiver::decodeText(const Plist::Object& record)
{
    auto object = entry(record, "NS.string");
    if (object.kind == Kind::invalid)
        object = entry(record, "NS.bytes");
    if (object.kind == Kind::uid)
        object = objectAt(object);
    if (object.kind != Kind::string && object.kind != Kind::data)
        return fail("The archive holds a text without characters");
    return text(object);
}

ArchivedValue KeyedUnarchiver::decodeOther(const Plist::Object& record)
{
    // The contents are of no use, but an unknown class among them counts as anywhere else.
    for (auto key : {"NS.keys", "NS.objects"}) {
        if (entry(record, key).kind != Kind::invalid)
            decodeElements(record, key);
    }
    return ArchivedValue::Other{};
}

const KeyedUnarchiver::Decode* KeyedUnarchiver::decodeForClass(const Plist::Object& uid)
{
    if (uid.kind == Kind::uid) {
        auto known = m_classes.find(uid.integer);
        if (known != m_classes.end())
            return &known->second;
    }
    auto name = entry(objectAt(uid), "$classname");
    if (uid.kind != Kind::uid || name.kind != Kind::string) {
        fail("The archive holds an object without a class");
        return nullptr;
    }
    auto decode = makeDecode(text(name));
    return decode ? &m_classes.emplace(uid.integer, std::move(decode)).first->second : nullptr;
}

KeyedUnarchiver::Decode KeyedUnarchiver::makeDecode(const std::string& className)
{
    if (auto decoder = decoders().find(className); decoder != decoders().end()) {
        return [this, decoder](const Plist::Object& record) -> ArchivedValue {
            auto outer = std::exchange(m_record, record);
            auto object = decoder->second(*this);
            m_record = outer;
            return object;
        };
    }
    if (className == "NSArray" || className == "NSMutableArray")
        return [this](const Plist::Object& record) { return decodeElements(record, "NS.objects"); };
    if (className == "NSString" || className == "NSMutableString")
        return [this](const Plist::Object& record) { return decodeText(record); };
    if (isOtherKnownClass(className))
        return [this](const Plist::Object& record) { return decodeOther(record); };
    fail("The archive holds an object of the unknown class " + className);
    return {};
}

BinaryPropertyListReader::Object KeyedUnarchiver::entry(const Plist::Object& record, std::string_view name)
{
    if (record.kind != Kind::dictionary || !spend(record.count))
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
        if (index == record.count)
            return {};
        key->index = index;
        key->reference = keyReference(index);
    }
    return m_plist.object(m_plist.reference(record, record.count + key->index));
}

BinaryPropertyListReader::Object KeyedUnarchiver::objectAt(const Plist::Object& uid)
{
    if (uid.kind != Kind::uid || static_cast<std::uint64_t>(uid.integer) >= m_objects.count)
        return {};
    return m_plist.object(m_plist.reference(m_objects, static_cast<std::size_t>(uid.integer)));
}

std::string KeyedUnarchiver::text(const Plist::Object& object)
{
    return spend(object.bytes.size()) ? Plist::string(object) : std::string();
}

bool KeyedUnarchiver::spend(std::size_t cost)
{
    if (cost > m_budget) {
        fail("The archive repeats its contents too often");
        return false;
    }
    m_budget -= cost;
    return true;
}

ArchivedValue KeyedUnarchiver::fail(std::string description)
{
    if (!m_error)
        m_error = Error{std::move(description)};
    return {};
}

} // namespace velmorath
