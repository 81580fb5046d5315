#include "PropertyList.h"
#include "BinaryPropertyListReader.h"
#include "BinaryPropertyListWriter.h"
#include "ReadingBudget.h"
#include <optional>

namespace velmorath {

namespace {

using Reader = BinaryPropertyListReader;
using Kind = BinaryPropertyListReader::Kind;
using Writer = BinaryPropertyListWriter;

Writer::Reference write(Writer& writer, const PropertyList& value)
{
    if (auto* string = value.string())
        return writer.addString(*string);
    if (auto* integer = value.as<std::int64_t>())
        return writer.addInteger(*integer);
    if (auto* real = value.as<double>())
        return writer.addReal(*real);
    if (auto* boolean = value.as<bool>())
        return writer.addBoolean(*boolean);
    if (auto* data = value.as<PropertyList::Data>())
        return writer.addData(data->bytes);
    if (auto* stored = value.as<PropertyList::Stored>())
        return writer.addStored(stored->bytes);

    std::vector<Writer::Reference> keys;
    std::vector<Writer::Reference> values;
    if (auto* array = value.as<PropertyList::Array>()) {
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
    explicit Parser(const Reader& reader)
        : m_reader(reader)
        , m_budget(reader.size())
    {
    }

    // Nothing for what must not or cannot be read; the reason is not worth a distinction.
    std::optional<PropertyList> parse(const Reader::Object& object, int depth = 0)
    {
        // A circle of references is a very deep nesting.
        constexpr int deepest = 100;
        if (depth >= deepest)
            return {};
        switch (object.kind) {
        case Kind::string:
            return keep<std::string>(Reader::string(object));
        case Kind::integer:
            return object.integer;
        case Kind::real:
            return object.real;
        case Kind::boolean:
            return object.boolean;
        case Kind::data:
            return keep<PropertyList::Data>(std::string(object.bytes));
        case Kind::array:
            return parseArray(object, depth);
        case Kind::dictionary:
            return parseDictionary(object, depth);
        case Kind::null:
        case Kind::wideInteger:
        case Kind::date:
        case Kind::uid:
            return keep<PropertyList::Stored>(std::string(object.bytes));
        default:
            return {};
        }
    }

private:
    // An entry of a map has the key, too, and three pointers.
    static constexpr std::uint64_t costPerElement = sizeof(PropertyList);
    static constexpr std::uint64_t costPerEntry = sizeof(PropertyList::Dictionary::value_type) + 40;

    template <typename Value> std::optional<PropertyList> keep(std::string bytes)
    {
        if (!m_budget.spend(ReadingBudget::costOf(bytes)))
            return {};
        return Value{std::move(bytes)};
    }

    std::optional<PropertyList> parseArray(const Reader::Object& object, int depth)
    {
        if (!m_budget.spend(object.count * costPerElement))
            return {};
        PropertyList::Array array;
        array.reserve(object.count);
        for (std::size_t index = 0; index < object.count; ++index) {
            auto element = parse(m_reader.object(m_reader.reference(object, index)), depth + 1);
            if (!element)
                return {};
            array.push_back(std::move(*element));
        }
        return array;
    }

    std::optional<PropertyList> parseDictionary(const Reader::Object& object, int depth)
    {
        if (!m_budget.spend(object.count * costPerEntry))
            return {};
        PropertyList::Dictionary dictionary;
        for (std::size_t index = 0; index < object.count; ++index) {
            auto key = m_reader.object(m_reader.reference(object, index));
            auto value = parse(m_reader.object(m_reader.reference(object, object.count + index)), depth + 1);
            if (key.kind != Kind::string || !value)
                return {};
            auto name = Reader::string(key);
            if (!m_budget.spend(ReadingBudget::costOf(name)))
                return {};
            dictionary.insert_or_assign(std::move(name), std::move(*value));
        }
        return dictionary;
    }

    const Reader& m_reader;
    ReadingBudget m_budget;
};

} // namespace

Result<PropertyList> PropertyList::parse(std::string_view bytes)
{
    auto reader = Reader::open(bytes);
    if (!reader)
        return reader.error();
    auto value = Parser(*reader).parse(reader->root());
    if (!value)
        return Error{"The property list is damaged, or holds values that are not supported"};
    return std::move(*value);
}

std::string PropertyList::binary() const
{
    Writer writer;
    auto root = write(writer, *this);
    return writer.finish(root);
}

} // namespace velmorath
