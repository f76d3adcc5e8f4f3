// foundation/vela-mlsection.h: one parsed item of a markup text, a tag with its attributes and children or a text, and
// the tree they form. A section keeps no strings but makes one when asked: a page has ten thousands of sections.
#pragma once

#include <utility>

#include "foundation/vela-array.h"
#include "foundation/vela-mlpool.h"
#include "foundation/vela-string.h"
#include "foundation/vela-textstream.h"

class mlParser;
class mlSection;

enum mlTagType : int
{
    kTagOrdinary = 0,    ///< "<"
    kTagDeclaration = 1, ///< "<!"
    kTagInstruction = 2, ///< "<?"
    kTagInclude = 3      ///< "<!--#", a server-side include
};

/// An attribute of a tag. Lives in its section and as long as it, unless removed; or alone, made or copied by its user.
class mlAttr
{
public:
    /// One that stands alone, without name and value.
    mlAttr();
    /// One that stands alone.
    mlAttr(mlAttr const& other);
    mlAttr& operator=(mlAttr const& other);
    /// Takes over the other's memory; the other can only be destroyed then.
    mlAttr(mlAttr&& other) noexcept
        : m_pool(std::exchange(other.m_pool, nullptr)),
          m_name(other.m_name),
          m_value(other.m_value),
          m_line(other.m_line)
    {}
    ~mlAttr()
    {
        if (m_pool && m_pool->isOneAttr)
            freePool();
    }

    /// The name.
    sstring getLHS() const;
    /// The value; empty when the attribute has none.
    sstring getRHS() const;
    void set(sstring const& name, sstring const& value);
    /// The line on which the name ended, from 1; 0 for an attribute that was not parsed.
    unsigned int getLine() const { return m_line; }
    /// name="value", with quotation marks in the value as "&quot;".
    sstring toString() const;

    /// Whether this is the name, without regard to case.
    bool isNamed(char const* name) const;

private:
    friend class mlSection;
    friend class mlParser;
    friend class mlWriter;

    explicit mlAttr(mlPool* home) : m_pool(home) {}
    void setName(unsigned short const* units, unsigned int length);
    void copyContent(mlAttr const& other);
    void freePool();

    mlPool* m_pool; // the section's, or this attribute's own (isOneAttr); null when moved from
    mlName* m_name = nullptr;
    mlText m_value;
    unsigned int m_line = 0;
};

/// One item. Sections of a parser belong to it; one made with `new` belongs to its maker until it is appended
/// somewhere. Whatever asks a section that is not parsed to its end for a child that is not there yet makes its parser
/// read on; so any reading may throw what mlParser::getSection() throws. One thread at a time.
class mlSection
{
public:
    explicit mlSection(mlParser* parser = nullptr);
    ~mlSection();
    mlSection(mlSection const&) = delete;
    mlSection& operator=(mlSection const&) = delete;

    bool isTag() const { return hasFlag(kIsTag); }
    bool isText() const { return hasFlag(kIsText); }
    /// Of a tag.
    mlTagType getType() const { return static_cast<mlTagType>(m_tagType); }
    /// Of a tag, as written; empty for a text.
    sstring getName() const;
    /// The name's units, not terminated, without a copy; null for a text. Valid as long as the section.
    unsigned short const* getNameUnits(unsigned int* length) const;
    /// Whether this is a tag of that name, without regard to case. Costs no string.
    bool isNamed(char const* name) const;

    /// Attributes and children by position; null past the last.
    mlAttr* getAttr(unsigned int index) const;
    mlSection* getChild(unsigned int index) const;
    /// How many there are; the children as far as they are parsed.
    unsigned int getAttrCount() const;
    unsigned int getChildCount() const;
    /// The first attribute of that name, which is the one that counts, or null.
    mlAttr* findAttr(char const* name) const;

    void addAttr(sstring const& name, sstring const& value);
    /// Removes every attribute of that name.
    void removeAttr(sstring const& name);
    /// Appends a new empty attribute and returns it. It stays where it is when others follow.
    mlAttr* nextAttr();
    /// Appends a new empty child and returns it.
    mlSection* nextSection();
    /// Appends a section made with `new` and takes it over, with its children.
    void append(mlSection* child);
    /// The first tag of that name below this section, depth first; null when there is none.
    mlSection* findSection(sstring const& name) const;

    /// The text. A long run is read from the stream again on first request, and kept from then on. velaError 22 for a
    /// tag.
    sstring getData() const;
    /// The same without a copy, not terminated; valid as long as the section and its text.
    unsigned short const* getDataUnits(unsigned int* length) const;
    /// White space stood before the text.
    bool hasLeadingSpace() const { return hasFlag(kLeadingSpace); }
    /// Whether the text is character data.
    bool isCData() const { return hasFlag(kIsCData); }
    /// Whether only the place of the text is known yet.
    bool isTruncated() const { return hasFlag(kTruncated); }

    void setTag(sstring const& name, mlTagType type);
    void setTagName(sstring const& name);
    void setTagType(mlTagType type);
    /// Makes the section a text, or changes a text. velaError 22 for a tag.
    void setData(sstring const& text);
    void setText(sstring const& text, bookmark const& start, int isTruncated, int isCData, int hasLeadingSpace);

    /// The line of the tag's name or the text's end, from 1; 0 for a section that was not parsed.
    unsigned int getLine() const { return m_line; }
    mlParser* getParser() const { return m_pool->parser; }
    /// Sets the parser that this section's tree reads from.
    void setParser(mlParser* parser);

    /// The section as markup.
    sstring toString() const;
    /// The same with one item on a line, the outermost `indent` levels deep.
    sstring toFormattedString(unsigned int indent = 0) const;

    /// Deletes the sections of the list and those that they adopted, without recursion.
    static void destroyAdopted(velaArray<mlSection*>& list);

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
        kIsOpen = 32,  // its parser is reading its children
        kOwnsPool = 64 // made outside of any parser
    };

    struct AttrBlock;
    struct TagBody
    {
        mlName* name;
        AttrBlock* attributes;
        union
        {
            mlSection* onlyChild; // childCapacity is 1
            mlSection** children;
        };
        uint32_t childCount;
        uint32_t childCapacity;
    };
    struct TextBody
    {
        mlText data;
        uint32_t startOffset; // noStart: the text has no place in a stream
        uint32_t startUnit;
    };
    static constexpr uint32_t kNoStart = 0xFFFFFFFF;

    explicit mlSection(mlPool* home) : m_pool(home), tag() {}
    static mlSection* make(mlPool* home);

    bool hasFlag(Flag flag) const { return (m_flags & flag) != 0; }
    void setFlag(Flag flag, bool isSet) { m_flags = static_cast<uint8_t>(isSet ? m_flags | flag : m_flags & ~flag); }
    void requireNoTag() const;
    void requireNoText() const;
    void becomeText();
    void placeText(unsigned short const* units, unsigned int length, bookmark const& start, bool isLong, bool isData,
                   bool spaced);
    void setTagName(unsigned short const* units, unsigned int length);
    void growChildren();
    void link(mlSection* child);
    bool parseChild(unsigned int index) const;
    mlSection** childArray() { return tag.childCapacity == 1 ? &tag.onlyChild : tag.children; }
    mlSection* const* childArray() const { return tag.childCapacity == 1 ? &tag.onlyChild : tag.children; }
    mlSection* loadedChild(unsigned int index) const { return index < getChildCount() ? childArray()[index] : nullptr; }
    void setAttrs(velaArray<mlAttr>& attributes);
    mlSection* copyInto(mlPool* home) const;
    void copyItem(mlSection* to) const;

    mlPool* m_pool; // the parser's, or this section's own (OwnsPool)
    uint32_t m_line = 0;
    uint8_t m_flags = 0;
    uint8_t m_tagType = kTagOrdinary;
    union
    {
        TagBody tag; // unless IsText
        TextBody text;
    };
};
