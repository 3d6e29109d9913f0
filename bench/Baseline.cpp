#include <charconv>
#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/PlatformUtils.hpp>

/// What reading alone costs whoever takes the library's own tree: a document parsed into it, and
/// every number in its attributes and texts converted.  bench_baseline DOCUMENT

namespace {

using namespace xercesc;

/// The numbers among the words seen so far.
class Numbers {
public:
    void AddWords(const XMLCh* text)
    {
        while (*text != 0) {
            while (IsBlank(*text))
                ++text;
            fWord.clear();
            // A number has ASCII only; cut to a byte, nothing else turns into one by '?'.
            for (; *text != 0 && !IsBlank(*text); ++text) {
                fWord.push_back(*text < 0x80 ? static_cast<char>(*text) : '?');
            }
            AddWord(fWord);
        }
    }

    std::size_t Count() const { return fCount; }
    double Sum() const { return fSum; }

private:
    static bool IsBlank(XMLCh c) { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

    void AddWord(std::string_view word)
    {
        double number = 0;
        const char* const end = word.data() + word.size();
        const auto [rest, error] = std::from_chars(word.data(), end, number);
        if (error != std::errc() || rest != end) return;
        ++fCount;
        fSum += number;
    }

    std::string fWord;
    std::size_t fCount = 0;
    double fSum = 0;
};

void AddNumbers(const DOMNode& node, Numbers& numbers)
{
    if (node.getNodeType() == DOMNode::TEXT_NODE) return numbers.AddWords(node.getNodeValue());
    if (const DOMNamedNodeMap* const attributes = node.getAttributes()) {
        for (XMLSize_t at = 0; at < attributes->getLength(); ++at) {
            numbers.AddWords(attributes->item(at)->getNodeValue());
        }
    }
    for (const DOMNode* child = node.getFirstChild(); child; child = child->getNextSibling()) {
        AddNumbers(*child, numbers);
    }
}

bool ReadNumbers(const char* document, Numbers& numbers)
{
    XercesDOMParser parser;
    HandlerBase throwing;
    parser.setErrorHandler(&throwing);
    try {
        parser.parse(document);
        AddNumbers(*parser.getDocument(), numbers);
        return true;
    } catch (const SAXException&) {
        return false;
    } catch (const XMLException&) {
        return false;
    }
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    XMLPlatformUtils::Initialize();
    Numbers numbers;
    const bool read = ReadNumbers(argv[1], numbers);
    XMLPlatformUtils::Terminate();
    if (!read) {
        std::fprintf(stderr, "bench_baseline: %s could not be read\n", argv[1]);
        return 1;
    }
    std::printf("%zu numbers, sum %.9g\n", numbers.Count(), numbers.Sum());
}
