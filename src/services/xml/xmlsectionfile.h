#pragma once
#include "services/xml/xmllist.h"
#include <cstddef>
#include <memory>
#include <string>

struct TKeptSection;

/// A file that several components share, of which one section is read and replaced.
///
/// Everything outside the section keeps its place and its content: elements, attributes, texts and
/// the document type line. Comments and processing instructions are no part of a stream and are
/// lost, as is an XML declaration: a file is saved in UTF-8.
class HDLBUILDFILE_API TXMLSectionFile : public TXMLList {
public:
    enum TPlacement {
        CHILD_OF_ROOT,  ///< the parent is the root, and the section counts only directly below it
        ANYWHERE        ///< as for readers that look for sections at every depth
    };

    /// The section's element is called `section`; a file without one is given one at the end of the
    /// first element called `parent`. Both must outlive the object.
    TXMLSectionFile(const char* section, const char* parent, TPlacement placement);
    ~TXMLSectionFile() override;

    /// After ReadFile: how often the file holds the section, and whether it holds the parent. A
    /// read that fails, as anything else that takes elements off the list, leaves neither.
    std::size_t GetSectionCount() const { return Section.Count; }
    bool HasParent() const { return Parent.Count > 0; }
    /// At the first section's START, or at the tail.
    DListIterator<TElement*> GetSection() const { return Section.Start; }

    /// What tells the first section from every other: equal for equal elements, attributes and
    /// texts in their order only, also between what was read and what ReplaceSection wrote. ""
    /// without the section.
    std::string GetSectionText() const;

    /// Writes the elements last read to the file, with those of FillSection in the place of the
    /// first section; after a read that found no file, and before any, a new document whose root is
    /// the parent. False when WriteFile fails; false, with nothing changed, when there is neither
    /// section nor parent and after a read that failed in another way. When memory runs out, the
    /// elements are those that were read, and the file is as it was or as it is to be.
    bool ReplaceSection(const char* path);

protected:
    /// Pushes the section's element, START and END included.
    virtual void FillSection() = 0;

    void FillElements() override;
    bool InterpretElements() override;
    void ObjectRemoved(TElement* element) override;

private:
    /// The first element of a name, as places in the stream.
    struct TPlace {
        const char* Name;
        DListIterator<TElement*> Start = {};
        std::size_t Begin = 0;
        std::size_t End = 0;  ///< of its END
        std::size_t Count = 0;
        std::size_t OpenAt = kNotOpen;  ///< the depth of one whose END is still to come
    };
    static constexpr std::size_t kNotOpen = static_cast<std::size_t>(-1);

    static void MeetStart(TPlace& place, const DListIterator<TElement*>& element, std::size_t depth,
                          std::size_t number);
    static void MeetEnd(TPlace& place, std::size_t depth, std::size_t number);
    bool MayBeNew() const;
    void ForgetPlaces();
    void Locate();
    void KeepElements();
    void PutBack();
    void LinkAll(DList<TElement*>* kept, std::size_t* count);

    TPlacement Placement;
    TPlace Section;
    TPlace Parent;
    bool WasRead = false;
    std::unique_ptr<TKeptSection> Kept;  // while the section is replaced
};
