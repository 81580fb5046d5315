#include "KeyedArchiver.h"
#include <algorithm>

namespace velmorath {
namespace {

constexpr std::uint32_t rootUID = 1;

// Whoever reads has a copy of a text for each record that refers to it, and refuses a file that becomes
// much larger than it is.
constexpr std::size_t longestSharedText = 32;

} // namespace

KeyedArchiver::KeyedArchiver(std::size_t recordCount)
    : m_null(m_writer.addUID(0))
    , m_booleans{m_writer.addBoolean(false), m_writer.addBoolean(true)}
    , m_classKey(m_writer.addString("$class"))
{
    // Room for records with a text of usual length.
    m_writer.reserve(recordCount * 5, recordCount * 128);
    m_objects.reserve(recordCount * 2);
    m_elements.reserve(recordCount);
    addObject(m_writer.addString("$null"));
    // The root's place; the root itself comes last.
    addObject(m_null);
}

void KeyedArchiver::encodeString(const std::optional<std::string>& text, std::string_view name)
{
    auto& key = keyNamed(name);
    m_recordKeys.push_back(key.reference);
    if (!text) {
        m_recordValues.push_back(m_null);
    } else if (key.lastText == *text) {
        m_recordValues.push_back(key.lastTextUID);
    } else {
        auto uid = m_writer.addUID(addObject(m_writer.addString(*text)));
        m_recordValues.push_back(uid);
        if (text->size() <= longestSharedText) {
            key.lastText = *text;
            key.lastTextUID = uid;
        }
    }
}

void KeyedArchiver::encodeBool(bool value, std::string_view name)
{
    m_recordKeys.push_back(keyNamed(name).reference);
    m_recordValues.push_back(m_booleans[value ? 1 : 0]);
}

void KeyedArchiver::append(const Coding& record, bool mayStandTwice)
{
    auto known = mayStandTwice ? m_shared.find(&record) : m_shared.end();
    auto uid = known == m_shared.end() ? addRecord(record) : known->second;
    if (mayStandTwice)
        m_shared.emplace(&record, uid);
    m_elements.push_back(m_writer.addUID(uid));
}

KeyedArchiver::UID KeyedArchiver::addRecord(const Coding& record)
{
    m_recordKeys.clear();
    m_recordValues.clear();
    record.encode(*this);
    m_recordKeys.push_back(m_classKey);
    m_recordValues.push_back(classNamed(record.archivedClassName()));
    return addObject(m_writer.addDictionary(m_recordKeys, m_recordValues));
}

std::string KeyedArchiver::finish()
{
    Reference rootKeys[] = {m_writer.addString("NS.objects"), m_classKey};
    Reference rootValues[] = {m_writer.addArray(m_elements), classNamed("NSArray")};
    m_objects[rootUID] = m_writer.addDictionary(rootKeys, rootValues);

    Reference topKey[] = {m_writer.addString("root")};
    Reference topValue[] = {m_writer.addUID(rootUID)};
    Reference keys[] = {
        m_writer.addString("$version"),
        m_writer.addString("$archiver"),
        m_writer.addString("$top"),
        m_writer.addString("$objects"),
    };
    Reference values[] = {
        m_writer.addInteger(100000),
        m_writer.addString("NSKeyedArchiver"),
        m_writer.addDictionary(topKey, topValue),
        m_writer.addArray(m_objects),
    };
    return m_writer.finish(m_writer.addDictionary(keys, values));
}

KeyedArchiver::UID KeyedArchiver::addObject(Reference reference)
{
    m_objects.push_back(reference);
    return static_cast<UID>(m_objects.size() - 1);
}

KeyedArchiver::Key& KeyedArchiver::keyNamed(std::string_view name)
{
    auto place = std::find_if(m_keys.begin(), m_keys.end(), [&](const Key& key) { return key.name == name; });
    if (place != m_keys.end())
        return *place;
    return m_keys.emplace_back(Key{std::string(name), m_writer.addString(name), {}, {}});
}

KeyedArchiver::Reference KeyedArchiver::classNamed(std::string_view name)
{
    auto place = std::find_if(
        m_classes.begin(), m_classes.end(), [&](const ClassEntry& entry) { return entry.name == name; });
    if (place != m_classes.end())
        return place->reference;

    auto nameReference = m_writer.addString(name);
    Reference chain[] = {nameReference, m_writer.addString("NSObject")};
    Reference keys[] = {keyNamed("$classname").reference, keyNamed("$classes").reference};
    Reference values[] = {nameReference, m_writer.addArray(chain)};
    auto reference = m_writer.addUID(addObject(m_writer.addDictionary(keys, values)));
    m_classes.push_back({name, reference});
    return reference;
}

} // namespace velmorath
