#include "fuzz/mutators/JsonMutator.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <vector>

#include "fuzz/mutators/Chance.h"

namespace fuzz {

namespace {

using rapidjson::SizeType;
using rapidjson::Value;

constexpr std::size_t kMostSteps = 3;

// clang-format off
constexpr double kNumbers[] = {0, 1, 2, 5, 20, 22, 21, 38, 86, 255, 256, 8, 32767, 32768, -1, 0.5, 1e308, -1e308, 1e-320,
                               2147483648.0, 4294967296.0, -719528, 2932896, 1e15, -1.7976931348623157e308};
constexpr const char* kTexts[] = {"numeric", "string", "TEST", "GROUP", "2024-02-29", "2023-02-30", "0001-01-01",
                                  "9999-12-31T23:59:60", "-5", "1582-10-14 12:00", "score", "d.xml", "../x", "A", "        "};
// clang-format on

class JsonMutation {
public:
    JsonMutation(rapidjson::Document& document, unsigned seed)
        : fDocument(document), fAllocator(document.GetAllocator()), fChance(seed)
    {
    }

    void Run()
    {
        for (std::size_t steps = fChance.Below(kMostSteps) + 1; steps > 0; --steps) {
            fValues.clear();
            Collect(fDocument);
            Step(*fChance.From(fValues));
        }
    }

private:
    void Collect(Value& value)
    {
        fValues.push_back(&value);
        if (value.IsArray())
            for (Value& item : value.GetArray())
                Collect(item);
        if (value.IsObject())
            for (SizeType place = 0; place < value.MemberCount(); ++place)
                Collect(value.MemberBegin()[static_cast<std::ptrdiff_t>(place)].value);
    }

    void Step(Value& value)
    {
        if (value.IsArray() && !value.Empty() && !fChance.OneIn(4)) return StepOf(value.GetArray());
        if (value.IsObject() && !value.ObjectEmpty() && !fChance.OneIn(4)) return StepOf(value);
        Exchange(value);
    }

    void StepOf(Value::Array array)
    {
        Value* const at = array.Begin() + fChance.Below(array.Size());
        switch (fChance.Below(3)) {
            case 0:
                array.Erase(at);
                break;
            case 1:
                at->Swap(array[static_cast<SizeType>(fChance.Below(array.Size()))]);
                break;
            default:
                array.PushBack(Value(*at, fAllocator), fAllocator);
        }
    }

    void StepOf(Value& object)
    {
        const auto at =
            object.MemberBegin() + static_cast<std::ptrdiff_t>(fChance.Below(object.MemberCount()));
        switch (fChance.Below(3)) {
            case 0:
                object.RemoveMember(at);
                break;
            case 1:
                at->name = Text(fChance.HostileText());
                break;
            default:
                object.AddMember(Value(at->name, fAllocator), Copy(), fAllocator);
        }
    }

    void Exchange(Value& value)
    {
        switch (fChance.Below(6)) {
            case 0:
                value = Value(kNumbers[fChance.Below(std::size(kNumbers))]);
                break;
            case 1:
                value = Value(static_cast<int>(fChance.Below(256)));
                break;
            case 2:
                value = Text(kTexts[fChance.Below(std::size(kTexts))]);
                break;
            case 3:
                value = Text(fChance.HostileText());
                break;
            case 4:
                value = fChance.OneIn(2) ? Value() : Value(fChance.OneIn(2));
                break;
            default:
                value = Copy();
        }
    }

    Value Copy() { return {*fChance.From(fValues), fAllocator}; }
    Value Text(const std::string& text)
    {
        return {text.data(), static_cast<SizeType>(text.size()), fAllocator};
    }

    rapidjson::Document& fDocument;
    rapidjson::Document::AllocatorType& fAllocator;
    Chance fChance;
    std::vector<Value*> fValues;
};

}  // namespace

std::string MutateJson(std::string_view text, unsigned seed)
{
    rapidjson::Document document;
    document.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
    if (document.HasParseError()) return std::string(text);
    JsonMutation(document, seed).Run();
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    document.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
}

}  // namespace fuzz
