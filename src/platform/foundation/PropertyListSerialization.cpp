#include "PropertyListSerialization.h"
#include "BinaryPropertyListReader.h"
#include "BinaryPropertyListWriter.h"

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
        , m_budget(reader.size() * budgetPerByte)
    {
    }

    // Nothing for what must not or cannot be read; the reason is not worth a distinction.
    std::optional<PropertyList> parse(const BinaryPropertyListReader::Object& object)
    {
        // A circle of references is a very deep nesting.
        constexpr int deepest = 100;
        if (m_depth >= deepest || !spend(costPerValue + object.bytes.size()))
            return {};
        ++m_depth;
        auto value = parseWhole(object);
        --m_depth;
        return value;
    }

private:
    // In an honest list a reference takes a byte or more, and so does each byte of a text. References
    // to one and the same value may repeat it, but not without end.
    static constexpr std::size_t budgetPerByte = 32;
    static constexpr std::size_t costPerValue = 16;

    bool spend(std::size_t cost)
    {
        bool affordable = cost <= m_budget;
        m_budget -= affordable ? cost : m_budget;
        return affordable;
    }

    std::optional<PropertyList> parseWhole(const BinaryPropertyListReader::Object& object)
    {
        switch (object.kind) {
        case Kind::string:
            return BinaryPropertyListReader::string(object);
        case Kind::integer:
            return object.integer;
        case Kind::real:
            return object.real;
        case Kind::boolean:
            return object.boolean;
        case Kind::data:
            return PropertyList::Data{std::string(object.bytes)};
        case Kind::array:
            return parseArray(object);
        case Kind::dictionary:
            return parseDictionary(object);
        default:
            return {};
        }
    }

    std::optional<PropertyList> parseArray(const BinaryPropertyListReader::Object& object)
    {
        PropertyList::Array array;
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
        PropertyList::Dictionary dictionary;
        for (std::size_t index = 0; index < object.count; ++index) {
            auto key = parse(m_reader.object(m_reader.reference(object, index)));
            auto value = parse(m_reader.object(m_reader.reference(object, object.count + index)));
            if (!key || !key->string() || !value)
                return {};
            dictionary.insert_or_assign(*key->string(), std::move(*value));
        }
        return dictionary;
    }

    const BinaryPropertyListReader& m_reader;
    std::size_t m_budget;
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
