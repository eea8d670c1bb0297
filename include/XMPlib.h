// SPDX-License-Identifier: Apache-2.0
// XMPlib: the production metadata of one document, kept as an XMP packet, read and written as
// typed records.
#ifndef XMPLIB_H
#define XMPLIB_H

#include <cstdint>
#include <string>
#include <vector>

#include "xmpl/document.h"
#include "xmpl/export.h"
#include "xmpl/inks.h"
#include "xmpl/layout.h"
#include "xmpl/resources.h"
#include "xmpl/screening.h"
#include "xmpl/unread.h"
#include "xmpl/version.h"

template <class tStringObj>
class TXMPMeta;  // the XMP Toolkit's metadata object

/// A handle onto one metadata object.
///
/// The frame of every Get, Set and Merge; each operation states only where it departs from it:
/// - It empties the error text first, so ErrStr() tells about the last call only.
/// - Without a metadata object (after RemoveXAP, a move away, or a CreateXAP that threw) it answers
///   false, and ErrStr() is "Illegal XAP".
/// - An error of the XMP Toolkit (XMP_Error) is caught: its message becomes the error text, the
///   result is false. What was done before the error stays done: there is no rollback. A shortage
///   of memory reaches the caller as std::bad_alloc, or, where the toolkit meets it, as such an
///   error.
/// - A scalar Get sets its output to its default before anything else. It answers whether the
///   property exists. Absence is no error.
/// - A list Get empties its vector before anything else. It answers true when it read at least one
///   item and met no error. It reads up to the first item that lacks a required field, or that is
///   an error; that item and all behind it are left out. GetUnreadItems tells of them.
/// - A Set answers true when all its writes were made. Of a simple property it replaces the value;
///   an array or structure in its place is a toolkit error. A list it deletes and writes anew; an
///   empty vector leaves an empty list. What a Get has left out is gone then.
/// - A Merge reads the stored list as its Get does, appends each incoming record that equals none
///   that is stored or was appended before, and writes the list only when it appended. It answers
///   true but for a handle without metadata. When it appended nothing, ErrStr() tells of the
///   reading. When it did, ErrStr() tells of the writing alone, and what the reading left out is
///   gone as after a Set. A record that storing alters (see below) is new at every merge.
/// - Where a text is read, an array or structure counts as an empty one.
///
/// Texts are UTF-8 and stored unchanged, but for ASCII's control characters: those other than tab,
/// line feed and carriage return become blanks, and a NUL ends the text. Text that is not
/// UTF-8, U+FFFE and U+FFFF are a toolkit error. Reals are stored with at most 10 significant
/// digits and without exponent; [docs/format.md](docs/format.md) has the rule. The process locale
/// takes no part in any of this. Prefixes of namespaces that are not the library's own are the
/// process's: the first packet that declares one decides.
///
/// Units and words: where a comment names a unit, a base or a list of words, the format has it.
/// Else they are the application's. Nothing is converted or checked, but where an operation says
/// so.
///
/// Threads: handles may be made, copied, moved, cloned and destroyed on any threads at once. One
/// handle, and all handles that share its metadata object, belong to one thread at a time. A
/// process may fork while no other thread is inside the library; the child then uses it as its
/// parent does.
class XMPLIB_API XMPlib {
 public:
  /// @name The handle
  /// @{

  /// A handle onto a new, empty metadata object. The first handle of a process starts the XMP
  /// Toolkit, which is never stopped. Throws XMP_Error or std::bad_alloc when the toolkit or the
  /// object cannot start.
  XMPlib();

  /// A second handle onto the same metadata object: each sees the other's changes. Its error text
  /// starts empty. The source is not changed, but may not be const: into a std::vector goes a
  /// second handle by emplace_back(handle), a clone by push_back(handle.CloneXAP());
  /// push_back(handle) does not compile.
  XMPlib(XMPlib& other);

  /// Takes the other handle's share, its error text and its packet text. `other` is afterwards
  /// without metadata, as after RemoveXAP, and may be used on. Assignment first drops what this
  /// handle held; a handle assigned to itself stays as it is. A move takes no lock but for that
  /// drop.
  XMPlib(XMPlib&& other) noexcept;
  XMPlib& operator=(XMPlib&& other) noexcept;  ///< as the move above

  /// The metadata object goes with its last handle.
  ~XMPlib();

  XMPlib& operator=(const XMPlib&) = delete;

  /// A handle onto a copy of the metadata: neither sees the other's changes. Its error text starts
  /// empty. Without a metadata object, so is the result. Throws XMP_Error when the copy cannot be
  /// made.
  XMPlib CloneXAP() const;

  /// The version of the library that is loaded, in the form of XMPLIB_VERSION, which is that of the
  /// headers: 10100 is 1.1.0.
  static std::int32_t Version();

  /// The error text of the last operation that sets it; empty when that met no error. RemoveXAP,
  /// CloneXAP, SimplifyExtRefs, ExpandExtRefs and what says so leave it alone. The reference holds
  /// as long as the handle, its text until the next operation: pass a copy to one.
  const std::string& ErrStr() const;

  /// Replaces the handle's metadata object by a new, empty one. Other handles that share the old
  /// object keep it. Throws as the constructor does; the handle is then without metadata.
  void CreateXAP();

  /// Takes the metadata object from this handle. Deliberately takes no lock: meanwhile no other
  /// thread may make, copy, clone, assign or destroy a handle, nor be in CreateXAP, RemoveXAP,
  /// SetXML or either MergeXML.
  void RemoveXAP();
  /// @}

  /// @name Packet text
  /// @{

  /// Replaces the metadata by the packet in `text` (with or without packet wrapper). Handles that
  /// shared the old metadata object keep it. Always answers true: a packet that cannot be read
  /// shows in ErrStr() alone. An empty text is empty metadata, not an error; nor need well-formed
  /// XML without an rdf:RDF, a web page for example, be one: GetXML() is then that of a new handle,
  /// as for a packet that holds nothing. Throws as CreateXAP does.
  ///
  /// ErrStr() is the toolkit's message, for malformed XML with line and column, or a refusal of
  /// this library's, with both where it ended the parse: for the depth of elements, the number of
  /// properties, fields, qualifiers and namespaces, the length of names, the size of the text, a
  /// DOCTYPE, or an encoding that is not known. [docs/limits.md](docs/limits.md) has the figures
  /// and the places. The metadata is empty then.
  bool SetXML(const std::string& text);

  /// The metadata as RDF in an x:xmpmeta element, without packet wrapper. Empty without a metadata
  /// object (ErrStr() is empty then too), after a toolkit error, and when it would be more than 256
  /// MiB: SetXML takes no more. The reference holds as long as the handle, its text until the next
  /// GetXML or GetXMLPacket, or until the handle is moved from or assigned to. Settles language
  /// alternatives: the default goes first, and beside it a single other item gets its text.
  const std::string& GetXML() const;

  /// As GetXML, as a writeable packet in its wrapper, with `padding` blanks for changes in place: a
  /// packet with a padding of n is n bytes longer than one with none would be, for every n from 1
  /// with which it is not more than 256 MiB. 0 is the toolkit's default padding, 2,048. A negative
  /// one, and one of 268,435,456 (256 MiB) or more, is a toolkit error. The first argument has no
  /// effect.
  const std::string& GetXMLPacket(bool unused, int padding) const;

  /// Prints every node of the metadata to standard output, a line each unless its value has line
  /// feeds: schema, path, value, option bits. For diagnosis. Leaves the error text alone. Prints
  /// nothing without a metadata object.
  void DumpXAP() const;

  /// Writes `value` as the simple property `propName` (a name or a path) of the schema `schemaNS`
  /// (a URI), as every operation here but SetDgcs writes a real. Leaves the error text alone; a
  /// toolkit error (XMP_Error) passes to the caller. So does one of this library's, with nothing
  /// changed, for what could not be loaded again as it is: a name that XML does not allow, a path
  /// or a number of properties over a limit of docs/limits.md, a qualifier that RDF gives a
  /// meaning; and where it has to try that, for metadata of more than 256 MiB. Where a load would
  /// change what is written as docs/limits.md says, but keep the text, it may pass: as dc:title for
  /// example. Without a metadata object, nothing is done.
  void SetProperty_Float(const char* schemaNS, const char* propName, double value);
  /// @}

  /// @name What a Get leaves out
  /// @{

  /// Every stored list that its Get does not read to the end. A Set after such a Get deletes the
  /// items that were not read. True when there is any.
  ///
  /// The array of inks is looked at as GetInks reads it; with `filmInks`, as GetInksDigFilm does. A
  /// Get of one kind reads no inks of the other. Coverage counts as read where its ink is. What
  /// SetUsedDigitalJobRefs wrote is always listed: its Get does not find it. A list that has no Get
  /// (SetMetaDataDigFilms) is not looked at. Each layout of the external references is looked at by
  /// itself, verbatim: what stands in the old one alone is not listed when it can be read, though a
  /// GetExtRefs that reads the current one and a SetExtRefs delete it. What is lost by expanding a
  /// run is in docs/limits.md. Takes time in step with the packet's size.
  bool GetUnreadItems(std::vector<XMPlUnreadItems>& unread) const;
  /// As above, with the inks of a digital film when `filmInks` is true.
  bool GetUnreadItems(std::vector<XMPlUnreadItems>& unread, bool filmInks) const;

  /// What the items that are read hold beyond their records, and a Get and Set of the list drops:
  /// fields that no record has, fields of a group that is not complete, qualifiers, values of
  /// another form than the field's, texts that a Set would write as another value (the attribute of
  /// an ink with an opaque mask; what is no number in the values of a DGC). In lists and ways as
  /// above. True when there is any.
  bool GetUnreadFields(std::vector<XMPlUnreadField>& unread) const;
  /// As above, with the inks of a digital film when `filmInks` is true.
  bool GetUnreadFields(std::vector<XMPlUnreadField>& unread, bool filmInks) const;
  /// @}

  /// @name Document scalars
  /// One value each. The default of a Get is 0, false or the empty text, or as said here.
  /// @{

  bool GetNrPages(int& pages) const;  ///< reads the number of pages
  bool SetNrPages(int pages);         ///< writes the number of pages

  bool GetScreenReg(
      bool& registration) const;         ///< reads whether the document carries screen registration
  bool SetScreenReg(bool registration);  ///< writes it

  bool GetIsTrapped(bool& trapped) const;  ///< reads whether the document is trapped
  bool SetIsTrapped(bool trapped);         ///< writes it

  bool GetStartLogPage(int& page) const;  ///< reads the first logical page
  bool SetStartLogPage(int page);         ///< writes the first logical page

  /// Reads the smart identifier. No default: absent, `id` keeps the caller's text.
  bool GetSmartID(std::string& id) const;
  bool SetSmartID(const std::string& id);  ///< writes the smart identifier

  /// Reads how the sides are printed. No default: absent, `sides` keeps the caller's text.
  bool GetRectoVerso(std::string& sides) const;
  bool SetRectoVerso(const std::string& sides);  ///< writes how the sides are printed

  bool GetPDFNativeVersion(int& version) const;  ///< reads the version of the native PDF
  bool SetPDFNativeVersion(int version);         ///< writes it; 0 deletes the property

  bool GetPDFNativeType(std::string& type) const;  ///< reads the type of the native PDF
  bool SetPDFNativeType(const std::string& type);  ///< writes the type of the native PDF

  /// Reads the version of the RIP that made the native PDF; absent: "undetermined".
  bool GetPDFNativeVindrelVersion(std::string& version) const;
  bool SetPDFNativeVindrelVersion(const std::string& version);  ///< writes it

  bool GetDigitalFilmVersion(int& version) const;  ///< reads the version of the digital film
  bool SetDigitalFilmVersion(int version);  ///< writes it, and nothing else of XMPlDigFilmVersion

  /// Reads the number of inks of the original document.
  bool GetNrInksOriginalDocument(int& inks) const;
  bool SetNrInksOriginalDocument(int inks);  ///< writes it

  bool GetDigitalJobVersion(int& version) const;  ///< reads the version of the digital job
  bool SetDigitalJobVersion(int version);         ///< writes it

  bool GetVDPVersion(int& version) const;  ///< reads the version of the variable-data content
  bool SetVDPVersion(int version);         ///< writes it; 0 deletes the property
  /// @}

  /// @name Document-level records
  /// These Gets set no defaults first, but for GetColorSpace: without a metadata object the record
  /// is unchanged, and after a toolkit error what was read before it is in its fields.
  ///
  /// Three-way fields, where a Set says so: an empty field leaves the stored property as it is, a
  /// single blank " " deletes it, any other text replaces it.
  /// @{

  /// The job. True when at least one of the six properties exists; absent ones are empty.
  /// Deliberately reads the last job reference of the packet while SetJobData writes the first:
  /// where a packet holds several, a Get does not see what a Set wrote.
  bool GetJobData(XMPlJobData& job) const;
  /// Three-way fields. Creates the list of job references, with one, when the packet has no such
  /// list, also for an empty record. Into a list that is there and empty, a first reference comes
  /// only with a name, id or url.
  bool SetJobData(const XMPlJobData& job);

  /// The product. True when at least one of the seven properties exists; absent ones are empty.
  bool GetProdData(XMPlProdData& product) const;
  bool SetProdData(const XMPlProdData& product);  ///< writes the product; three-way fields

  /// The document's own data. True when at least one of the six properties exists, of the
  /// description the text in the default language; absent ones are empty.
  bool GetDocumentData(XMPlDocData& data) const;
  /// Three-way fields; a date "now" is the current date and time, one and the same for all dates of
  /// the call. A description replaces those in all languages, and a blank deletes all. It is stored
  /// where dc:description is: XMP knows both as one.
  bool SetDocumentData(const XMPlDocData& data);

  /// The document's version. True when at least one of the four properties exists. Deliberately
  /// never fills `comments`, which keeps the caller's text; absent others are empty.
  bool GetDocumentVersion(XMPlDocVersion& version) const;
  /// Three-way fields; a date "now" as in SetDocumentData.
  bool SetDocumentVersion(const XMPlDocVersion& version);

  /// The version of the digital-film data. Answers whether "version" exists. Absent, `version` is
  /// left unchanged as a whole; else absent texts are empty. Lets a toolkit error (XMP_Error: a
  /// version that is no number) pass to the caller; standard exceptions become the error text.
  bool GetDigitalFilmVersionDetailed(XMPlDigFilmVersion& version) const;
  bool SetDigitalFilmVersionDetailed(const XMPlDigFilmVersion& version);  ///< writes all fields

  /// The document that this one was derived from: only `instanceID` and `renditionClass` take part.
  /// True when both exist. The second is read only behind the first; what is not read is unchanged.
  bool GetBaseDoc(XMPlExtRef& base) const;
  bool SetBaseDoc(const XMPlExtRef& base);  ///< writes the two fields

  /// The page's dimensions. True when all ten properties exist. Reads vsize, hsize, margbot,
  /// margtop, margleft, margright, vshrink, hshrink, units, readerspread in this order into their
  /// fields, up to the first that is absent; that and the rest are unchanged.
  bool GetDimDat(XMPlDimDat& dimensions) const;
  bool SetDimDat(const XMPlDimDat& dimensions);  ///< writes all ten

  /// The dimensions of a digital film. True when the five basic properties exist. `basicOnly` and
  /// `hasMargins` tell which of the later groups were complete; margins that are not are 0. Of an
  /// incomplete group, the fields found before the gap are stored; `reverse` and
  /// `scanlinedirection` also from behind a gap in the distances and scales. Lets a toolkit error
  /// (XMP_Error) pass to the caller; standard exceptions become the error text. So does
  /// SetDimDatDigFilm.
  bool GetDimDatDigFilm(XMPlDimDatDigFilm& dimensions) const;
  /// Writes the groups that `basicOnly` and `hasMargins` announce; a stored group that they do not
  /// announce stays.
  bool SetDimDatDigFilm(const XMPlDimDatDigFilm& dimensions);

  /// The colour profile. Sets the record's defaults before anything else. Answers whether the
  /// description exists: the other two are read in any case. The location is returned as stored,
  /// whatever it is.
  bool GetColorSpace(XMPlColorSpace& colours) const;
  /// False, with "Illegal value for profile location" and nothing written, for a location that is
  /// none of the four.
  bool SetColorSpace(const XMPlColorSpace& colours);

  /// Standard schemas, for other tools; there is no Get. Each field is written, or deleted when it
  /// is empty (or not valid). A title replaces those in all languages; a structure or a plain text
  /// in its place is a toolkit error, and stays.
  bool SetPDFData(const XMPlPDFData& data);
  bool SetMMData(const XMPlMMData& data);  ///< as SetPDFData
  /// @}

  /// @name Inks
  /// @{

  /// The document's inks with their coverage. Answers whether the ink list exists, also when no ink
  /// was read. An unreadable coverage is no error: `coverageValid` is false then. With
  /// `excludeOmask`, inks whose attribute is "omask" are left out; without the flag, none.
  bool GetInks(std::vector<XMPlInk>& inks, bool excludeOmask) const;
  bool GetInks(std::vector<XMPlInk>& inks) const;  ///< all inks
  /// Without `writeBookAndVxname`, the stored inks have neither `book` nor `vxname` afterwards.
  bool SetInks(const std::vector<XMPlInk>& inks, bool writeBookAndVxname);
  /// Appends inks (operator==). Writing deliberately drops the coverage of all inks: it was
  /// measured for another set. The flag is that of SetInks, for the stored inks too. Inks of a
  /// digital film stand in the same array, and are what GetInks leaves out: they are gone after
  /// writing.
  bool MergeInks(const std::vector<XMPlInk>& inks, bool writeBookAndVxname);

  /// The list of ink properties. Answers whether the list exists. An empty `printingmethod` is not
  /// stored and reads back as "unknown".
  bool GetInkProperties(std::vector<XMPlInkProperty>& properties) const;
  bool SetInkProperties(const std::vector<XMPlInkProperty>& properties);  ///< writes the list

  /// The inks of a digital film, stored in the same array as the document's inks. The Get lets a
  /// toolkit error (XMP_Error) pass to the caller; standard exceptions become the error text.
  bool GetInksDigFilm(std::vector<XMPlInkDigFilm>& inks) const;
  /// Without `withBookAndName`, `book` and `vxname` are not stored.
  bool SetInksDigFilm(const std::vector<XMPlInkDigFilm>& inks, bool withBookAndName);

  /// The digital jobs that a film was made from. Deliberately asymmetric: the Get reads fields of
  /// another namespace than the Set writes, and does not find what the Set wrote.
  bool GetUsedDigitalJobRefs(std::vector<XMPlUsedDigFilmRef>& refs) const;
  bool SetUsedDigitalJobRefs(const std::vector<XMPlUsedDigFilmRef>& refs);  ///< as said there

  /// DGC curves. Values are stored with six decimals, each followed by one blank. A stored text
  /// whose last number is not ends the Get with std::length_error; the curves before it are in
  /// `dgcs`.
  bool GetDgcs(std::vector<XMPlDgcc>& dgcs) const;
  bool SetDgcs(const std::vector<XMPlDgcc>& dgcs);  ///< writes the curves

  /// One entry for each separation of a digital film. There is no Get. Of the inks, book, vxname
  /// and printing method are not stored; screening is, whatever hasScreening says.
  bool SetMetaDataDigFilms(const std::vector<XMPlMetaDataDigFilm>& films);
  /// @}

  /// @name Screening
  /// Screens are stored in numbered groups. Reading all groups stops at the first that yields no
  /// screen.
  /// @{

  /// All groups in one list, or, when they yield nothing, the list of the older layout.
  /// Deliberately answers for the last group that was looked at: false, with the screens of the
  /// groups before it in `screens`, when that one yields none although its first item has
  /// vxScreen:autoplateDGCreq.
  bool GetScreens(std::vector<XMPlScreen>& screens) const;
  /// One group, counted from 1.
  bool GetScreens(std::vector<XMPlScreen>& screens, int group) const;
  /// Replaces all groups by one. A list of the older layout stays where it is.
  bool SetScreens(const std::vector<XMPlScreen>& screens);

  /// All groups, each with its screens.
  bool GetScreenContainer(std::vector<std::vector<XMPlScreen>>& groups) const;
  /// Replaces all groups.
  bool SetScreenContainer(const std::vector<std::vector<XMPlScreen>>& groups);

  /// The files that the document uses.
  bool GetUsedRefs(std::vector<XMPlUsedRef>& refs) const;
  bool SetUsedRefs(const std::vector<XMPlUsedRef>& refs);  ///< writes the files
  /// @}

  /// @name Resources
  /// @{

  /// The files that the document refers to. Without `verbatim`, runs of numbered images are stored
  /// as one entry each (SimplifyExtRefs) and read back as one record for each file, under a name
  /// that begins with "file:" (ExpandExtRefs); with it, the list is read and stored as it is. The
  /// flag is false where it is not given. Read from the current layout, and from the old one when
  /// that has no first entry or one without `instanceID`. Expansion throws what ExpandExtRefs
  /// throws: then `refs` holds the list as stored, and ErrStr() tells of its reading.
  bool GetExtRefs(std::vector<XMPlExtRef>& refs, bool verbatim) const;
  bool GetExtRefs(std::vector<XMPlExtRef>& refs) const;  ///< not verbatim
  /// Writes both layouts: what stood in the old one alone is gone, unless GetExtRefs had read it
  /// from there. Throws what SimplifyExtRefs throws, and has written nothing then.
  bool SetExtRefs(const std::vector<XMPlExtRef>& refs, bool verbatim);
  bool SetExtRefs(const std::vector<XMPlExtRef>& refs);  ///< not verbatim
  /// The old layout alone: it holds `instanceID` and `renditionClass`; other fields keep their
  /// defaults. Nothing is expanded or compacted.
  bool GetOldExtRefs(std::vector<XMPlExtRef>& refs) const;
  bool SetOldExtRefs(const std::vector<XMPlExtRef>& refs);  ///< writes the old layout alone
  /// Appends references (operator==) to the stored list, expanded; `refs` is taken as it is, a run
  /// in it as one reference. Of equal references the counts are added up; an unknown count (-1)
  /// wins. A merge that changes nothing but counts deliberately leaves the packet as it is, and
  /// writing compacts: a numbered image's count is then that of its run. Throws what ExpandExtRefs
  /// throws for the stored list and SimplifyExtRefs for the merged one, and has written nothing
  /// then.
  bool MergeExtRefs(const std::vector<XMPlExtRef>& refs);

  /// The list with runs of numbered images compacted: references of type "image" and page 0 whose
  /// name ends in "_", 3 to 9 digits and an extension. Other references come first, unchanged; then
  /// the runs. Images whose names differ in nothing but their number's value are a group: all its
  /// runs, and its single images too, have the rendition class of its first member in `refs`, and
  /// as `count` the number of their files. A number that comes twice begins a run anew. The
  /// extension is all behind the digits, with one "." at its front: "a_001.tif.gz" is not numbered.
  /// The files of a run with "*" in their extension do not come back from ExpandExtRefs under their
  /// names. Works on `refs` alone. Throws std::length_error for images whose runs would take twenty
  /// times as much as the list, when they are stored: a very long rendition class and many gaps.
  std::vector<XMPlExtRef> SimplifyExtRefs(const std::vector<XMPlExtRef>& refs) const;
  /// The list with compacted runs ("files:...", in any case of letters) expanded in their places,
  /// each file's name beginning with "file:". Works on `refs` alone. Throws std::logic_error, "bad
  /// extref", for a run without "*", "#" or, behind the last "#", "-". A number is the low 32 bits
  /// of what strtoll reads: blanks, a sign and digits, as far as they go; 0 without digits. A run
  /// whose last number is less than its first comes to no file. Throws std::length_error for a list
  /// with runs that would be more than a packet may hold, were it expanded and stored: 256 MiB, or
  /// some 480,000 files with short names.
  std::vector<XMPlExtRef> ExpandExtRefs(const std::vector<XMPlExtRef>& refs) const;

  /// The structural design (CAD) files. Only `instanceID` and `renditionClass` are stored; other
  /// fields keep their defaults.
  bool GetCadFiles(std::vector<XMPlExtRef>& files) const;
  bool SetCadFiles(const std::vector<XMPlExtRef>& files);  ///< writes the files
  /// Appends files (operator==). Stored files have page -1: a file with another page is always new.
  bool MergeCadFiles(const std::vector<XMPlExtRef>& files);

  /// The fonts. Without `keepDuplicates`, an embedded font is left out when a font that is not
  /// embedded has the same file name behind the last ";" of `fontfile`; fonts without ";" take no
  /// part. The flag is true where it is not given.
  bool GetFonts(std::vector<XMPlFont>& fonts, bool keepDuplicates) const;
  bool GetFonts(std::vector<XMPlFont>& fonts) const;  ///< all fonts
  /// Stores the fonts sorted by operator<; the order among fonts that contradict each other there
  /// is not stated.
  bool SetFonts(const std::vector<XMPlFont>& fonts);
  /// Appends fonts (operator==), and sorts as SetFonts.
  bool MergeFonts(const std::vector<XMPlFont>& fonts);

  bool GetBarcodes(std::vector<XMPlBarcode>& barcodes) const;  ///< reads the barcodes
  bool SetBarcodes(const std::vector<XMPlBarcode>& barcodes);  ///< writes the barcodes
  /// Appends barcodes (operator==).
  bool MergeBarcodes(const std::vector<XMPlBarcode>& barcodes);

  bool GetLayers(std::vector<XMPlLay>& layers) const;  ///< reads the layers
  bool SetLayers(const std::vector<XMPlLay>& layers);  ///< writes the layers
  /// Appends layers (by name); the flags of a stored one stay.
  bool MergeLayers(const std::vector<XMPlLay>& layers);

  /// The page ranges. Reads of each range the inks up to the first that is missing.
  bool GetPagRanges(std::vector<XMPlPagRange>& ranges) const;
  bool SetPagRanges(const std::vector<XMPlPagRange>& ranges);  ///< writes the page ranges

  bool GetSmartNames(std::vector<XMPlSmartName>& names) const;  ///< reads the smart names
  bool SetSmartNames(const std::vector<XMPlSmartName>& names);  ///< writes the smart names
  /// @}

  /// @name Layout
  /// @{

  bool GetRepeats(std::vector<XMPlRepeat>& repeats) const;  ///< reads the placement schemes
  bool SetRepeats(const std::vector<XMPlRepeat>& repeats);  ///< writes the placement schemes

  /// The registration on a CAD drawing. True when all six properties exist. Reads them in the
  /// record's order into their fields, up to the first that is absent; that and the rest are
  /// unchanged.
  bool GetCadReg(XMPlCadReg& registration) const;
  bool SetCadReg(XMPlCadReg& registration);  ///< writes it; does not change `registration`
  /// @}

  /// @name Merging
  /// @{

  /// Merges the inks, external references, fonts, CAD files, barcodes and layers of another packet
  /// into this handle's, in this order and by their own Merge operations; `inkFlag` is MergeInks'
  /// flag. A list of the packet that meets an error is passed over as a whole. Always true.
  /// Does not empty the error text itself: ErrStr() is what the last Merge that ran has left, and
  /// the error text from before when none ran (a packet that cannot be read has no lists). To find
  /// out whether it can be read (SetXML says how XML that is no packet shows):
  ///
  ///     XMPlib other;
  ///     other.SetXML(packetText);  // other.ErrStr() is empty when it can
  ///
  /// Throws as the constructor does, and what ExpandExtRefs throws for the references of either
  /// side and SimplifyExtRefs for the merged ones, when the inks are merged already.
  bool MergeXML(const std::string& packetText, bool inkFlag);

  /// Merges the packets of several digital films into one job on this handle. The first packet that
  /// is complete (dimensions, inks, colour space, screens, used references, page ranges) is the
  /// base and gives the document's records; each later packet that has inks, screens and page
  /// ranges adds its inks, their screen groups, its DGC curves (of one name the first), and by
  /// `mode`:
  /// - 0, separations of the same pages: each added ink gets the next ink number in the first page
  ///   range; the film version's structure becomes "Composite".
  /// - 1, further pages: the packet's first page range is renumbered to follow the stored ones; the
  ///   structure becomes "Separated", unless it is "Composite" in any case of letters.
  /// - Any other: neither.
  ///
  /// `writeBookAndName` is SetInksDigFilm's flag. One packet alone, or none that is complete: the
  /// first packet is loaded as by SetXML. None at all: nothing happens. Always true; ErrStr() is
  /// what the last SetPagRanges or SetXML left: errors of other writes are lost. Incomplete packets
  /// are passed over silently, but the version, the document and the job data of one before the
  /// base stay where they are not read from the base: the document data is read, present or not,
  /// where there is a version, the job data where there are both. A range without inks gets 1 as
  /// its first; later pages and inks are numbered as if both counted from 0. A screen group that a
  /// later packet lacks is empty, and so is where GetScreenContainer stops; the base's groups and
  /// curves are taken as they are. XMP_Error from the version or the dimensions of a packet up to
  /// the base, or from the inks of any, and what GetDgcs throws, pass to the caller with this
  /// handle unchanged; XMP_Error from writing the dimensions, and std::bad_alloc, with a part of
  /// the records written.
  bool MergeXML(const std::vector<std::string>& packets, int mode, bool writeBookAndName);

  /// Copies the properties of schemas that this library does not manage from another handle's
  /// metadata, node by node, in their form and with their qualifiers. A value that exists here
  /// stays as it is, but gets the qualifiers that it lacks; an array or structure that exists here
  /// gets the fields that it lacks and, by position, the items. URIs become plain texts. Leaves
  /// out: the private namespaces, all that begin with `http://ns.adobe.com/xap/`, what in dc begins
  /// with "description" or "format", and the texts of pdf:Producer, pdf:Version and pdf:Trapped,
  /// but not their qualifiers, fields and items. Answers whether there was any other node, copied
  /// or not. Leaves the error text alone; a toolkit error (XMP_Error: a filled array or structure
  /// there against a text, or the other of the two, here; of those three, where nothing is here, a
  /// filled array, or a filled structure with qualifiers) passes to the caller, with the nodes
  /// copied so far. False when either handle is without metadata. Where the outcome could not be
  /// saved and loaded again (a limit of docs/limits.md but for that of size; an item without a
  /// language in a language alternative, unless the default stands before it), XMP_Error says why,
  /// and nothing is changed.
  bool MergeNonOrvo(const XMPlib* other);

  /// Whether dc:format says that this is an Illustrator document,
  /// "application/vnd.adobe.illustrator".
  bool IsNonPDFCompatible() const;
  /// @}

 private:
  struct WithoutMetadata {};
  XMPLIB_LOCAL explicit XMPlib(WithoutMetadata) {}

  template <class Body>
  XMPLIB_LOCAL bool guarded(Body&& body) const;
  template <class Body>
  XMPLIB_LOCAL bool guardedPassingToolkitErrors(Body&& body) const;
  template <class Call>
  XMPLIB_LOCAL bool framed(Call&& call) const;
  XMPLIB_LOCAL const std::string& serialise(unsigned int options, int padding) const;
  XMPLIB_LOCAL void release();
  XMPLIB_LOCAL void takeFrom(XMPlib& other) noexcept;

  std::int32_t slot = -1;                 // of the registry; -1: none
  TXMPMeta<std::string>* meta = nullptr;  // owned by the registry; null: no metadata
  mutable std::string errStr;
  mutable std::string xml;
};

#endif
