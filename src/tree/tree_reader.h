// Bytes to tree by a reading table. What a vocabulary does beyond its table are the hooks.
#pragma once

#include "core/text_hash.h"
#include "tree/id_table.h"
#include "tree/reading.h"
#include "tree/reading_table.h"
#include "tree/tokeniser.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace XPJ {

// Text of one element out of several runs, appended in time linear in its length. It lives as long
// as the document.
class TextRuns {
public:
    // Copies the run.
    void Append(std::string_view run, Document& document);
    std::string_view View() const { return {text_, size_}; }

private:
    char* text_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

class TreeReader {
public:
    TreeReader(const ReadingTable& table, std::string_view input, Document& document,
               StageScope* stage, TagRules rules = TagRules::Letter);
    TreeReader(const TreeReader&) = delete;
    TreeReader& operator=(const TreeReader&) = delete;

    // Reads to the input's end and binds the references.
    int Read(ObjectHandle& documentElement, ReadStop* stop);

    // What was read over; complete after `Read`.
    std::vector<IgnoredElements> Ignored() const;

protected:
    ~TreeReader() = default;

    // An open element; its attribute text stays readable to its end.
    struct Element {
        const Rule* rule;
        ObjectHandle node;
        std::string_view attributes;
        TextRuns text;
        std::uint64_t parts = 0; // bits of the parts that it has had
    };

    struct StartTag {
        std::string_view name;
        std::string_view attributes;
        bool selfClosed;
        Action action; // of the current rule
    };

    // Sees each start tag that has attributes. `isOpen`: its element is the current one now.
    virtual void TakeAttributes(const Element& current, const StartTag& tag, bool isOpen);
    // Sees each start tag that is no item first; true when nothing is left to do.
    virtual bool TakeStart(const Element& current, const StartTag& tag) = 0;
    // Sees each end tag before it closes the current element, or doesn't.
    virtual void TakeEnd(const Element& current, std::string_view tag);
    // The element, no part, has ended; unless detached it has just become a child of `parent`.
    virtual void TakeComplete(const Element& element, ObjectHandle parent);

    // Whether ignored elements of that tag are listed. All are, unless the vocabulary explains
    // them.
    virtual bool IsListed(std::string_view tag) const;

    // True for an item whose text may have several lines; by the rules of XML alone they are kept.
    virtual bool HasLines(Name item) const;

    // Attributes of the rule's list that the text has become properties of the node.
    void SetAttributes(const Rule& rule, std::string_view attributes, ObjectHandle node) const;
    bool FindAttribute(std::string_view attributes, std::string_view name,
                       std::string_view& value) const
    {
        return rules_ == TagRules::Xml ? GetXmlAttribute(attributes, name, value)
                                       : GetAttribute(attributes, name, value);
    }

    // Of the current element: "xmeml/project/children".
    std::string OpenPath() const;

    const ReadingTable& Table() const { return table_; }
    IdTable& Ids() { return ids_; }

private:
    int ReadTokens(ReadStop* stop);
    bool StartElement();
    bool ReadLeaf(TagNumber tag);
    bool HasKeptLines() const;
    bool EndElement();
    void Ignore(std::string_view tag, bool isSelfClosed);
    void KeepText(std::string_view text);
    void Open(const Rule& rule, std::string_view attributes);
    void Close();
    void FillStop(ReadStop& stop) const;

    const ReadingTable& table_;
    TagRules rules_;
    std::string_view input_;
    Document& document_;
    Tokeniser tokens_;
    IdTable ids_;
    std::vector<Element> open_;
    Name openLeaf_;
    // What a rule ignored.
    struct IgnoredKey {
        std::uint16_t rule;
        std::string_view tag;
        bool operator==(const IgnoredKey&) const = default;
    };
    struct IgnoredHash {
        std::size_t operator()(const IgnoredKey& key) const
        {
            return TextHash()(key.tag) * 31 + key.rule;
        }
    };
    std::unordered_map<IgnoredKey, IgnoredElements, IgnoredHash> ignored_;
    // The outermost ignored element that is open, in that many elements.
    std::string_view openIgnored_;
    std::size_t ignoredDepth_ = 0;
    Token fault_ = Token::EndOfInput; // what else ended the reading
    const char* reason_ = "";
};

} // namespace XPJ
