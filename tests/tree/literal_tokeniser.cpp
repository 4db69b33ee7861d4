#include "tree/literal_tokeniser.h"

#include "tree/tokeniser.h"

namespace XPJ {

namespace {

constexpr std::string_view kMark = "CDATA[";

class LiteralTokeniser {
public:
    LiteralTokeniser(std::string_view input, bool asLeaf) : input_(input), asLeaf_(asLeaf) {}

    std::vector<Event> Run()
    {
        while (position_ < input_.size() && !failed_) {
            const char byte = input_[position_++];
            if (byte != '\0')
                Take(byte == '\r' ? '\n' : byte);
        }
        return std::move(events_);
    }

private:
    void Take(char c)
    {
        if (state_ == 3) {
            cdata_.clear();
            state_ = 5;
        }
        const bool cutsShort = state_ == 1 || state_ == 2 || state_ == 4 || state_ == 9 ||
                               (state_ >= 13 && state_ <= 16);
        if (c == '<' && cutsShort) {
            state_ = 0;
            return;
        }
        if (state_ <= 4)
            TakeMarkup(c);
        else if (state_ <= 7)
            TakeCData(c);
        else if (state_ <= 12)
            TakeComment(c);
        else if (state_ <= 16)
            TakeTag(c);
        else
            TakeContent(c);
    }

    void TakeMarkup(char c)
    {
        switch (state_) {
        case 0: // behind "<"
            if (c == '<')
                Fail();
            else if (c == '/')
                endName_.clear(), state_ = 16;
            else if (c == '!')
                state_ = 1;
            else if (c != '>' && c != ' ')
                name_ = c, attributes_.clear(), selfClosed_ = false, state_ = 13;
            break;
        case 1: // behind "<!"
            if (c == '[')
                index_ = 0, state_ = 2;
            else if (c == '-')
                state_ = 8;
            break;
        case 2: // in "CDATA["
            if (c != kMark[index_])
                state_ = 4;
            else if (++index_ == kMark.size())
                state_ = 3;
            break;
        default: // in an unknown declaration
            break;
        }
    }

    void TakeCData(char c)
    {
        switch (state_) {
        case 5:
            if (c == ']')
                state_ = 6;
            else
                cdata_ += c;
            break;
        case 6: // behind one "]"
            if (c == ']')
                state_ = 7;
            else
                cdata_ += "]", cdata_ += c, state_ = 5;
            break;
        default: // behind "]]"
            if (c == '>') {
                if (!cdata_.empty())
                    Add(Event::CData, cdata_);
                cdata_.clear();
                state_ = 17;
            } else if (c == ']') {
                cdata_ += ']';
            } else {
                cdata_ += "]]", cdata_ += c, state_ = 5;
            }
        }
    }

    void TakeComment(char c)
    {
        switch (state_) {
        case 8: // behind "<!-"
            state_ = c == '-' ? 10 : 9;
            break;
        case 10:
            state_ = c == '-' ? 11 : 10;
            break;
        case 11: // behind "-"
            state_ = c == '-' ? 12 : 10;
            break;
        case 12: // behind "--"
            state_ = c == '>' ? 17 : 9;
            break;
        default: // a bad comment
            break;
        }
    }

    void TakeTag(char c)
    {
        switch (state_) {
        case 13: // in the name
            if (c == ' ')
                state_ = 14;
            else if (c == '/')
                selfClosed_ = true;
            else if (c == '>')
                Start();
            else
                name_ += c;
            break;
        case 14: // in the attributes
            if (c == '>') {
                if (!asLeaf_ && name_ == "file" && input_.substr(position_, 7) == "</file>")
                    position_ += 7, selfClosed_ = true;
                Start();
            } else if (c == '/') {
                selfClosed_ = true;
            } else {
                attributes_ += c;
                if (c == '"' || c == '\'')
                    quote_ = c, state_ = 15;
            }
            break;
        case 15: // in a quoted value
            attributes_ += c;
            if (c == quote_)
                state_ = 14;
            break;
        default: // in an end tag
            if (c == '>')
                Add(Event::End, endName_), state_ = 17;
            else
                endName_ += c;
        }
    }

    void TakeContent(char c)
    {
        if (c == '<') {
            if (!text_.empty())
                Add(Event::Text, text_);
            text_.clear();
            state_ = 0;
        } else if (static_cast<unsigned char>(c) >= 32) {
            text_ += c;
        }
    }

    void Start()
    {
        events_.push_back({selfClosed_ ? Event::SelfClosed : Event::Start, name_, attributes_});
        state_ = 17;
    }

    void Add(Event::Kind kind, const std::string& text) { events_.push_back({kind, text, {}}); }

    void Fail()
    {
        Add(Event::SyntaxError, std::to_string(position_ - 1));
        failed_ = true;
    }

    std::string_view input_;
    bool asLeaf_;
    std::size_t position_ = 0;
    int state_ = 17;
    bool failed_ = false;
    std::size_t index_ = 0;
    char quote_ = '\0';
    bool selfClosed_ = false;
    std::string name_, attributes_, endName_, cdata_, text_;
    std::vector<Event> events_;
};

} // namespace

std::string Describe(const std::vector<Event>& events)
{
    static constexpr const char* kKinds[] = {"start", "self-closed", "text",
                                             "cdata", "end",         "syntax error"};
    std::string result;
    for (const Event& event : events)
        result +=
            std::string(kKinds[event.kind]) + " [" + event.text + "] [" + event.attributes + "]\n";
    return result;
}

std::vector<Event> LiteralEvents(std::string_view input, bool asLeaf)
{
    return LiteralTokeniser(input, asLeaf).Run();
}

std::vector<Event> FastEvents(std::string_view input, bool asLeaf)
{
    Document document;
    Tokeniser tokens(input, document);
    std::vector<Event> events;
    for (;;) {
        switch (tokens.Next(asLeaf ? Content::Leaf : Content::All)) {
        case Token::Start:
            events.push_back({tokens.IsSelfClosed() ? Event::SelfClosed : Event::Start,
                              std::string(tokens.Name()), std::string(tokens.Attributes())});
            break;
        case Token::End:
            events.push_back({Event::End, std::string(tokens.Name()), {}});
            break;
        case Token::Text:
            events.push_back({Event::Text, std::string(tokens.Text()), {}});
            break;
        case Token::CData:
            events.push_back({Event::CData, std::string(tokens.Text()), {}});
            break;
        case Token::SyntaxError:
            events.push_back({Event::SyntaxError, std::to_string(tokens.Offset()), {}});
            return events;
        case Token::EndOfInput:
        case Token::Cancelled:
            return events;
        }
    }
}

} // namespace XPJ
