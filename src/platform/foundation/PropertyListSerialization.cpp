#include "PropertyListSerialization.h"
#include "BinaryPropertyListReader.h"
#include "BinaryPropertyListWriter.h"
#include "ReadingBudget.h"

namespace velmorath {
namespace {

using Kind = BinaryPropertyListReader::Kind;
using Writer = BinaryPropertyListWriter;

Writer::Reference write(Writer& writer, const PropertyList& value)
{
    if (auto* string = value.string())
        return writer.addString(*string);
    if (auto integer = value.integer())
        return writer.addInteger(*integer);
    if (auto real = value.real())
        return writer.addReal(*real);
    if (auto boolean = value.boolean())
        return writer.addBoolean(*boolean);
    if (auto* data = value.data())
        return writer.addData(*data);
    if (auto* stored = value.stored())
        return writer.addStored(*stored);

    std::vector<Writer::Reference> keys;
    std::vector<Writer::Reference> values;
    if (auto* array = value.array()) {
        for (auto& element : *array)
            values.push_back(write(writer, element));
        return writer.addArray(values);
    }
    for (auto& [key, element] : *value.dictionary()) {
        keys.push_back(writer.addString(key));
        values.push_back(write(writer, element));
    }
    return writer.addDictionary(keys, values);
}

class Parser {
public:
    explicit Parser(const BinaryPropertyListReader& reader)
        : m_reader(reader)
        , m_budget(reader.size())
    {
    }

    // Nothing for what must not or cannot be read; the reason is not worth a distinction.
    std::optional<PropertyList> parse(const BinaryPropertyListReader::Object& object)
    {
        // A circle of references is a very deep nesting.
        constexpr int deepest = 100;
        if (m_depth >= deepest)
            return {};
        ++m_depth;
        auto value = parseWhole(object);
        --m_depth;
        return value;
    }

private:
    // An entry of a map has the key, too, and three pointers.
    static constexpr std::uint64_t costPerElement = sizeof(PropertyList);
    static constexpr std::uint64_t costPerEntry = sizeof(PropertyList::Dictionary::value_type) + 40;

    std::optional<PropertyList> parseWhole(const BinaryPropertyListReader::Object& object)
    {
        switch (object.kind) {
        case Kind::string:
            return keep<std::string>(BinaryPropertyListReader::string(object));
        case Kind::integer:
            return object.integer;
        case Kind::real:
            return object.real;
        case Kind::boolean:
            return object.boolean;
        case Kind::data:
            return keep<PropertyList::Data>(std::string(object.bytes));
        case Kind::array:
            return parseArray(object);
        case Kind::dictionary:
            return parseDictionary(object);
        case Kind::null:
        case Kind::wideInteger:
        case Kind::date:
        case Kind::uid:
            return keep<PropertyList::Stored>(std::string(object.bytes));
        default:
            return {};
        }
    }

    template <typename Value> std::optional<PropertyList> keep(std::string bytes)
    {
        if (!m_budget.spend(ReadingBudget::costOf(bytes)))
            return {};
        return Value{std::move(bytes)};
    }

    std::optional<PropertyList> parseArray(const BinaryPropertyListReader::Object& object)
    {
        if (!m_budget.spend(object.count * costPerElement))
            return {};
        PropertyList::Array array;
        array.reserve(object.count);
        for (std::size_t index = 0; index < object.count; ++index) {
            auto element = parse(m_reader.object(m_reader.reference(object, index)));
            if (!element)
                return {};
            array.push_back(std::move(*element));
        }
        return array;
    }

    std::optional<PropertyList> parseDictionary(const BinaryPropertyListReader::Object& object)
    {
        if (!m_budget.spend(object.count * costPerEntry))
            return {};
        PropertyList::Dictionary dictionary;
        for (std::size_t index = 0; index < object.count; ++index) {
            auto key = m_reader.object(m_reader.reference(object, index));
            auto value = parse(m_reader.object(m_reader.reference(object, object.count + index)));
            if (key.kind != Kind::string || !value)
                return {};
            auto name = BinaryPropertyListReader::string(key);
            if (!m_budget.spend(ReadingBudget::costOf(name)))
                return {};
            dictionary.insert_or_assign(std::move(name), std::move(*value));
        }
        return dictionary;
    }

    const BinaryPropertyListReader& m_reader;
    ReadingBudget m_budget;
    int m_depth = 0;
};

} // namespace

std::string binaryPropertyList(const PropertyList& value)
{
    Writer writer;
    auto root = write(writer, value);
    return writer.finish(root);
}

Result<PropertyList> parseBinaryPropertyList(std::string_view bytes)
{
    auto reader = BinaryPropertyListReader::open(bytes);
    if (!reader)
        return reader.error();
    auto value = Parser(*reader).parse(reader->root());
    if (!value)
        return Error{"The property list is damaged, or holds values that are not supported"};
    return std::move(*value);
}

} // namespace velmorath
