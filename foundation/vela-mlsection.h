// foundation/vela-mlsection.h: a parsed item of markup: a tag with its attributes and children, or a text. Sections
// form a tree. They make strings only on request, because a page has tens of thousands of sections.
#pragma once

#include "foundation/vela-array.h"
#include "foundation/vela-mlpool.h"
#include "foundation/vela-string.h"
#include "foundation/vela-textstream.h"

#include <utility>

class mlParser;
class mlSection;

enum mlTagType : int
{
    kTagOrdinary = 0,    ///< "<"
    kTagDeclaration = 1, ///< "<!"
    kTagInstruction = 2, ///< "<?"
    kTagInclude = 3      ///< "<!--#", a server-side include
};

/// An attribute of a tag. It belongs to its section and lives as long, unless it is removed; one made or copied by a
/// user stands alone.
class mlAttr
{
public:
    /// Stands alone, without name and value.
    mlAttr();
    /// Stands alone.
    mlAttr(mlAttr const& other);
    mlAttr& operator=(mlAttr const& other);
    /// Takes over the other's memory. The other can then only be destroyed.
    mlAttr(mlAttr&& other) noexcept
        : m_pool(std::exchange(other.m_pool, nullptr)),
          m_name(other.m_name),
          m_value(other.m_value),
          m_line(other.m_line),
          m_hasValue(other.m_hasValue)
    {}
    ~mlAttr()
    {
        if (m_pool && m_pool->m_isOneAttr)
            freePool();
    }

    /// The name.
    sstring getLHS() const;
    /// The units of the name, not terminated and not copied; null without one. Valid as long as the attribute.
    unsigned short const* getNameUnits(unsigned int* length) const;
    /// The value; empty if the attribute has none.
    sstring getRHS() const;
    void set(sstring const& name, sstring const& value);
    /// The line on which the name ends, from 1; 0 if the attribute was not parsed.
    unsigned int getLine() const { return m_line; }
    /// Whether it was written with "=": an empty value is a value then.
    bool hasValue() const { return m_hasValue; }
    /// name="value", with quotation marks in the value as "&quot;".
    sstring toString() const;

    /// Whether the attribute has that name, ignoring case.
    bool isNamed(char const* name) const;

private:
    friend class mlSection;
    friend class mlParser;
    friend class mlWriter;

    explicit mlAttr(mlPool* home) : m_pool(home) {}
    void setName(unsigned short const* units, unsigned int length);
    void copyContent(mlAttr const& other);
    void freePool();

    mlPool* m_pool; // of the section, or owned (m_isOneAttr); null after a move
    mlName* m_name = nullptr;
    mlText m_value;
    unsigned int m_line : 31 = 0;
    unsigned int m_hasValue : 1 = 0;
};

/// An item of markup. Sections of a parser belong to it; one made with `new` belongs to its maker until it is appended.
/// Asking for a child that has not been parsed yet makes the parser continue, so every function that reads may throw
/// what mlParser::getSection() throws. One thread at a time.
class mlSection
{
public:
    explicit mlSection(mlParser* parser = nullptr);
    ~mlSection();
    mlSection(mlSection const&) = delete;
    mlSection& operator=(mlSection const&) = delete;

    bool isTag() const { return hasFlag(kIsTag); }
    bool isText() const { return hasFlag(kIsText); }
    /// The type of a tag.
    mlTagType getType() const { return static_cast<mlTagType>(m_tagType); }
    /// The name of a tag, as written; empty for a text.
    sstring getName() const;
    /// The units of the name, not terminated and not copied; null for a text. Valid as long as the section.
    unsigned short const* getNameUnits(unsigned int* length) const;
    /// Whether this is a tag with that name, ignoring case. Makes no string.
    bool isNamed(char const* name) const;

    /// Attributes and children by index; null after the last.
    mlAttr* getAttr(unsigned int index) const;
    mlSection* getChild(unsigned int index) const;
    /// Their numbers, children as far as they have been parsed.
    unsigned int getAttrCount() const;
    unsigned int getChildCount() const;
    /// The first attribute with that name, or null. Later ones of the same name have no effect.
    mlAttr* findAttr(char const* name) const;

    void addAttr(sstring const& name, sstring const& value);
    /// Removes all attributes with that name.
    void removeAttr(sstring const& name);
    /// Appends an empty attribute. The pointer stays valid when others are appended.
    mlAttr* nextAttr();
    /// Appends an empty child.
    mlSection* nextSection();
    /// Appends a section made with `new`, with its children, and takes ownership.
    void append(mlSection* child);
    /// The first tag with that name below this section, in depth-first order; null if there is none.
    mlSection* findSection(sstring const& name) const;

    /// The text. A truncated text is read from the stream in full on the first request and then kept. Throws velaError
    /// 22 for a tag.
    sstring getData() const;
    /// The same, not terminated and not copied; valid until the text changes.
    unsigned short const* getDataUnits(unsigned int* length) const;
    /// Whether white space preceded the text.
    bool hasLeadingSpace() const { return hasFlag(kLeadingSpace); }
    /// Whether the text is character data.
    bool isCData() const { return hasFlag(kIsCData); }
    /// Whether only the position of the text is known so far.
    bool isTruncated() const { return hasFlag(kTruncated); }

    void setTag(sstring const& name, mlTagType type);
    void setTagName(sstring const& name);
    void setTagType(mlTagType type);
    /// Sets the text of an empty section or a text. Throws velaError 22 for a tag.
    void setData(sstring const& text);
    void setText(sstring const& text, bookmark const& start, int isTruncated, int isCData, int hasLeadingSpace);

    /// The line of the tag's name or of the text's end, from 1; 0 if the section was not parsed.
    unsigned int getLine() const { return m_line; }
    mlParser* getParser() const { return m_pool->m_parser; }
    /// Sets the parser from which this section and those below it are read.
    void setParser(mlParser* parser);

    /// The section as markup.
    sstring toString() const;
    /// The same with one item per line, the outermost indented by `indent` levels.
    sstring toFormattedString(unsigned int indent = 0) const;

    /// Deletes a section, those behind it in the list of its pool's adopter, and those that their pools have adopted,
    /// without recursion.
    static void destroyAdopted(mlSection* first);

private:
    friend class mlParser;
    friend class mlWriter;

    enum Flag : uint8_t
    {
        kIsTag = 1,
        kIsText = 2,
        kTruncated = 4,
        kIsCData = 8,
        kLeadingSpace = 16,
        kIsOpen = 32,  // the parser may still add children
        kOwnsPool = 64 // was made outside any parser
    };

    struct AttrBlock;
    struct TagBody
    {
        mlName* name;
        AttrBlock* attributes;
        union
        {
            mlSection* onlyChild; // if childCapacity is 1
            mlSection** children;
        };
        uint32_t childCount;
        uint32_t childCapacity;
    };
    struct TextBody
    {
        mlText data;
        uint32_t startOffset; // kNoStart: the text has no position in a stream
        uint32_t startUnit;
    };
    static constexpr uint32_t kNoStart = 0xFFFFFFFF;

    explicit mlSection(mlPool* home) : m_pool(home) {}
    static mlSection* make(mlPool* home);

    bool hasFlag(Flag flag) const { return (m_flags & flag) != 0; }
    void setFlag(Flag flag, bool isSet) { m_flags = static_cast<uint8_t>(isSet ? m_flags | flag : m_flags & ~flag); }
    void requireNoTag() const;
    void requireNoText() const;
    void becomeText();
    void assignText(unsigned short const* units, unsigned int length, bookmark const& start, bool isLong, bool isData,
                    bool spaced);
    void setTagName(unsigned short const* units, unsigned int length);
    void growChildren();
    void linkChild(mlSection* child);
    bool parseChild(unsigned int index) const;
    mlSection** childArray() { return m_tag.childCapacity == 1 ? &m_tag.onlyChild : m_tag.children; }
    mlSection* const* childArray() const { return m_tag.childCapacity == 1 ? &m_tag.onlyChild : m_tag.children; }
    mlSection* parsedChild(unsigned int index) const { return index < getChildCount() ? childArray()[index] : nullptr; }
    void setAttrs(velaArray<mlAttr>& attributes);
    mlSection* copyInto(mlPool* home) const;
    void copyItem(mlSection* to) const;

    mlPool* m_pool; // of the parser, or owned (kOwnsPool)
    uint32_t m_line = 0;
    uint8_t m_flags = 0;
    uint8_t m_tagType = kTagOrdinary;
    union
    {
        TagBody m_tag = {}; // unless kIsText is set
        TextBody m_text;
    };
};
