#include "tree/tree_reader.h"

#include "core/encoding.h"
#include "core/text.h"

#include <algorithm>

namespace XPJ {

namespace {

constexpr const char* kSecondBracket = "a second \"<\" where an element name should start";
constexpr std::size_t kPathEnds = 8;
constexpr const char* kCutOff = "the document ends inside an element";
constexpr const char* kTooDeep = "elements nested more than 1000 levels deep";
static_assert(kMaxNesting == 1000);

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(' ') == text.npos;
}

// Line ends and tabs as character references; other bytes below 32 count nowhere.
std::string LinesAsReferences(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEndOfPair = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
        if (text[i] == '\t')
            result += "&#9;";
        else if ((text[i] == '\n' && !isEndOfPair) || text[i] == '\r')
            result += "&#10;";
        else if (static_cast<unsigned char>(text[i]) >= 32)
            result += text[i];
    }
    return result;
}

} // namespace

void TextRuns::Append(std::string_view run, Document& document)
{
    const std::size_t size = size_ + run.size();
    if (size > capacity_) {
        // Most texts are one run.
        capacity_ = size_ == 0 ? size : 2 * size;
        char* const larger = document.AllocateText(capacity_);
        std::copy_n(text_, size_, larger);
        text_ = larger;
    }
    std::copy(run.begin(), run.end(), text_ + size_);
    size_ = size;
}

TreeReader::TreeReader(const ReadingTable& table, std::string_view input, Document& document,
                       StageScope* stage, TagRules rules)
    : table_(table), rules_(rules), input_(input), document_(document),
      tokens_(input, document, stage, rules), ids_(document)
{
    document.Expect(input.size());
    open_.reserve(64);
    const Rule& root = table.Root();
    open_.push_back({&root, document.NewObject(root.tag), {}, {}});
}

int TreeReader::Read(ObjectHandle& documentElement, ReadStop* stop)
{
    documentElement = {};
    if (stop)
        *stop = {};
    const int result = ReadTokens(stop);
    if (result != kReadDone)
        return result;
    ids_.BindReferences();
    const Name tag = table_.DocumentElement().tag;
    documentElement = open_.front().node.GetChild(tag);
    if (documentElement)
        return kReadDone;
    if (stop)
        stop->reason = "no element \"" + std::string(tag.View()) + "\"";
    return kReadNoElement;
}

int TreeReader::ReadTokens(ReadStop* stop)
{
    bool goesOn = true;
    while (goesOn) {
        const bool keepsText = !open_.back().rule->textProperty.IsEmpty();
        const Token token = tokens_.Next(keepsText ? Content::All : Content::Tags);
        switch (token) {
        case Token::Start:
            goesOn = StartElement();
            break;
        case Token::End:
            goesOn = EndElement();
            break;
        case Token::Text:
            if (!IsBlank(tokens_.Text()))
                KeepText(tokens_.Text());
            break;
        case Token::CData:
            // All text in the tree is escaped text.
            KeepText(EscapeXML(tokens_.Text()));
            break;
        case Token::SyntaxError:
            reason_ = kSecondBracket;
            [[fallthrough]];
        case Token::EndOfInput:
        case Token::Cancelled:
            fault_ = token;
            goesOn = false;
            break;
        }
    }
    if (fault_ == Token::Cancelled)
        return kReadCancelled;
    if (fault_ == Token::SyntaxError) {
        if (stop)
            FillStop(*stop);
        return kReadSyntax;
    }
    if (open_.size() > 1 && stop) {
        reason_ = kCutOff;
        FillStop(*stop);
    }
    // What the input's end left open is kept as far as it came.
    while (open_.size() > 1)
        Close();
    return kReadDone;
}

bool TreeReader::StartElement()
{
    const Element& current = open_.back();
    const TagNumber number = table_.FindTag(tokens_.Name());
    const Action action = current.rule->actions[number];
    const StartTag tag{tokens_.Name(), tokens_.Attributes(), tokens_.IsSelfClosed(), action};
    const bool opens = action.kind == Action::Child;
    const bool isTaken = action.kind != Action::Leaf && TakeStart(current, tag);
    if (!tag.attributes.empty() && (isTaken || !opens))
        TakeAttributes(current, tag, false);
    if (action.kind == Action::Leaf)
        return ReadLeaf(number);
    if (action.kind == Action::Ignore && !isTaken)
        Ignore(tag.name, tag.selfClosed);
    if (isTaken || !opens)
        return true;
    if (open_.size() > kMaxNesting) {
        reason_ = kTooDeep;
        fault_ = Token::SyntaxError;
        return false;
    }
    Open(table_.RuleAt(action.rule), tag.attributes);
    if (!tag.attributes.empty())
        TakeAttributes(open_.back(), tag, true);
    if (tag.selfClosed)
        Close();
    return true;
}

// The first end tag of any name ends an item; start tags inside do nothing.
bool TreeReader::ReadLeaf(TagNumber tag)
{
    openLeaf_ = table_.TagName(tag);
    TextRuns text;
    bool isOpen = !tokens_.IsSelfClosed();
    while (isOpen) {
        const Token token = tokens_.Next(Content::Leaf);
        switch (token) {
        case Token::Text:
            if (HasKeptLines())
                text.Append(LinesAsReferences(tokens_.TextWithControls()), document_);
            else
                text.Append(tokens_.Text(), document_);
            break;
        case Token::CData:
            text.Append(EscapeXML(tokens_.Text()), document_);
            break;
        case Token::Start:
            break;
        case Token::End:
        case Token::EndOfInput:
            isOpen = false;
            break;
        case Token::SyntaxError:
            reason_ = kSecondBracket;
            [[fallthrough]];
        case Token::Cancelled:
            fault_ = token;
            return false;
        }
    }
    open_.back().node.AddPropertyShared(openLeaf_, text.View());
    openLeaf_ = {};
    return true;
}

bool TreeReader::EndElement()
{
    if (tokens_.Name() == openIgnored_)
        openIgnored_ = {};
    TakeEnd(open_.back(), tokens_.Name());
    if (open_.back().rule->tag != tokens_.Name())
        return true;
    if (open_.size() == 1)
        return false;
    Close();
    return true;
}

// An ignored element that is never closed ends with the one around it.
void TreeReader::Ignore(std::string_view tag, bool isSelfClosed)
{
    const bool isElement = !tag.starts_with('?') && !tag.starts_with('!');
    if (!isElement || (!openIgnored_.empty() && open_.size() >= ignoredDepth_))
        return;
    const auto [entry, isNew] = ignored_.try_emplace({open_.back().rule->index, tag});
    IgnoredElements& elements = entry->second;
    if (isNew && IsListed(tag))
        elements.path = OpenPath().append("/").append(tag);
    if (!elements.path.empty())
        elements.owners.push_back(open_.back().node.UniqueId());
    if (isSelfClosed)
        return;
    openIgnored_ = tag;
    ignoredDepth_ = open_.size();
}

std::vector<IgnoredElements> TreeReader::Ignored() const
{
    std::vector<IgnoredElements> result;
    for (const auto& [key, entry] : ignored_)
        if (!entry.path.empty())
            result.push_back(entry);
    std::ranges::sort(result, {}, [](const IgnoredElements& entry) {
        return std::pair(std::string_view(entry.path), entry.owners.size());
    });
    return result;
}

void TreeReader::KeepText(std::string_view text)
{
    Element& current = open_.back();
    current.text.Append(text, document_);
    current.node.SetPropertyShared(current.rule->textProperty, current.text.View());
}

void TreeReader::Open(const Rule& rule, std::string_view attributes)
{
    Element& parent = open_.back();
    const bool isFirstPart = (rule.partBit & ~parent.parts) != 0;
    parent.parts |= rule.partBit;
    const ObjectHandle node = isFirstPart ? parent.node : document_.NewObject(rule.tag);
    SetAttributes(rule, attributes, node);
    open_.push_back({&rule, node, attributes, {}});
}

void TreeReader::Close()
{
    const Element element = open_.back();
    const Rule& rule = *element.rule;
    open_.pop_back();
    if (rule.nodeKind == NodeKind::Part)
        return;
    const ObjectHandle parent = open_.back().node;
    if (rule.nodeKind == NodeKind::Child)
        parent.AddChild(rule.tag, element.node);
    TakeComplete(element, parent);
}

void TreeReader::TakeAttributes(const Element&, const StartTag&, bool) {}

bool TreeReader::IsListed(std::string_view) const
{
    return true;
}

void TreeReader::TakeEnd(const Element&, std::string_view) {}

bool TreeReader::HasLines(Name) const
{
    return false;
}

// Few texts have control bytes inside.
bool TreeReader::HasKeptLines() const
{
    return rules_ == TagRules::Xml && tokens_.Text().size() != tokens_.TextWithControls().size() &&
           HasLines(openLeaf_);
}

void TreeReader::TakeComplete(const Element&, ObjectHandle) {}

void TreeReader::SetAttributes(const Rule& rule, std::string_view attributes,
                               ObjectHandle node) const
{
    if (attributes.empty())
        return;
    std::string_view value;
    for (const Name& name : rule.attributes)
        if (FindAttribute(attributes, name.View(), value))
            node.SetProperty(name, value);
}

// "xmeml/project/children"; of a deep path both ends are enough.
std::string TreeReader::OpenPath() const
{
    std::string path;
    for (std::size_t i = 1; i < open_.size(); ++i) {
        if (i == kPathEnds + 1 && open_.size() > 2 * kPathEnds + 2) {
            path += "/...";
            i = open_.size() - kPathEnds;
        }
        path.append(i > 1 ? "/" : "").append(open_[i].rule->tag.View());
    }
    return path;
}

void TreeReader::FillStop(ReadStop& stop) const
{
    stop.reason = reason_;
    stop.offset = tokens_.Offset();
    const TextPosition position = PositionOf(input_, stop.offset);
    stop.line = position.line;
    stop.column = position.column;
    stop.path = OpenPath();
    if (!openLeaf_.IsEmpty())
        stop.path.append(stop.path.empty() ? "" : "/").append(openLeaf_.View());
}

} // namespace XPJ
