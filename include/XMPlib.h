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

// A handle onto one metadata object.
//
// The frame of every Get, Set and Merge; each operation states only where it departs from it:
// - It empties the error text first, so ErrStr() tells about the last call only.
// - A Get sets its outputs to their defaults before anything else. Defaults of records stand with
//   their fields.
// - Without a metadata object (after RemoveXAP, or a CreateXAP that threw) it answers false, and
//   ErrStr() is "Illegal XAP".
// - An error of the XMP Toolkit (XMP_Error) is caught: its message becomes the error text, the
//   result is false. What was done before the error stays done: there is no rollback. Other
//   exceptions (std::bad_alloc) pass to the caller.
// - A scalar Get answers whether the property exists. Absence is no error.
// - A Set answers true when all its writes were made. It replaces what was stored; a list is
//   deleted and written anew, and an empty vector leaves an empty list.
// - A list Get answers true when it read at least one item. It reads up to the first item that
//   lacks a required field; that item and all behind it are left out.
//
// Texts are UTF-8 and stored unchanged, but for what XML cannot hold: control characters become
// blanks, and a NUL ends the text. Text that is not UTF-8 is a toolkit error.
// A real number is stored with at most 10 significant digits and without exponent.
// Neither the process locale nor anything else outside the handle takes part in any of this.
//
// Threads: handles may be made, copied and destroyed on any threads at once. One handle, and all
// handles that share its metadata object, belong to one thread at a time.
class XMPLIB_API XMPlib {
 public:
  // --- The handle -----------------------------------------------------------------------------

  // A handle onto a new, empty metadata object. The first handle of a process starts the XMP
  // Toolkit, which is never stopped. Throws XMP_Error when the toolkit or the object cannot start.
  XMPlib();

  // A second handle onto the same metadata object: each sees the other's changes. Its error text
  // starts empty. The source is not changed.
  XMPlib(XMPlib& other);

  // Takes the other handle's share, its error text and its packet text. `other` is afterwards
  // without metadata, as after RemoveXAP, and may be used on. Assignment first drops what this
  // handle held; a handle assigned to itself stays as it is. A move takes no lock but for that
  // drop.
  XMPlib(XMPlib&& other) noexcept;
  XMPlib& operator=(XMPlib&& other) noexcept;

  // The metadata object goes with its last handle.
  ~XMPlib();

  XMPlib& operator=(const XMPlib&) = delete;

  // A handle onto a copy of the metadata: neither sees the other's changes. Its error text starts
  // empty. Without a metadata object, so is the result. Throws XMP_Error when the copy cannot be
  // made.
  XMPlib CloneXAP() const;

  // The version of the library that is loaded, in the form of XMPLIB_VERSION, which is that of the
  // headers: 10100 is 1.1.0.
  static std::int32_t Version();

  // The error text of the last operation; empty when it met no error. The reference holds as long
  // as the handle, its text until the next operation.
  const std::string& ErrStr() const;

  // Replaces the handle's metadata object by a new, empty one. Other handles that share the old
  // object keep it. Throws as the constructor does; the handle is then without metadata.
  void CreateXAP();

  // Takes the metadata object from this handle. Deliberately takes no lock: no other thread may
  // make, copy or destroy a handle meanwhile.
  void RemoveXAP();

  // --- Packet text ----------------------------------------------------------------------------

  // Replaces the metadata by the packet in `text` (with or without packet wrapper). Handles that
  // shared the old metadata object keep it. Always answers true: a packet that cannot be parsed
  // shows in ErrStr() alone, and leaves this handle with what the toolkit made of it, normally
  // nothing. An empty text is empty metadata, not an error. Throws as CreateXAP does.
  //
  // A packet over one of these limits is not parsed: ErrStr() says which, and where. 128 levels of
  // elements; 4,096 attributes of one element; 16,384 children of one element other than rdf:li,
  // and as many properties in all; 1,024 namespaces; 256 MiB of text, 1 GiB when serialised
  // (estimated); any DOCTYPE; in a namespace URI, a reference that XML does not know, and in UTF-16
  // packets any reference and a double quote. Within them, loading takes time in step with the
  // packet's size.
  bool SetXML(const std::string& text);

  // The metadata as RDF, without packet wrapper. Empty without a metadata object (ErrStr() is
  // empty then too) and after a toolkit error. The reference holds as long as the handle, its text
  // until the next GetXML or GetXMLPacket.
  const std::string& GetXML() const;

  // As GetXML, as a writeable packet in its wrapper, with `padding` blanks for changes in place; 0
  // or less is the toolkit's default padding, about 2,000. The first argument has no effect.
  const std::string& GetXMLPacket(bool unused, int padding) const;

  // Prints every node of the metadata to standard output, a line each: schema, path, value, option
  // bits. For diagnosis. Leaves the error text alone; a toolkit error passes to the caller. Prints
  // nothing without a metadata object.
  void DumpXAP() const;

  // Writes `value` as the simple property `propName` of the schema `schemaNS` (a URI), as every
  // operation here writes a real: at most 10 significant digits, "9999999999" for ten or more
  // integer digits, NaN and infinities. Leaves the error text alone; a toolkit error (XMP_Error)
  // passes to the caller. Does nothing without a metadata object.
  void SetProperty_Float(const char* schemaNS, const char* propName, double value);

  // --- What a Get leaves out ------------------------------------------------------------------

  // Every stored list that its Get does not read to the end. A Set after such a Get deletes the
  // items that were not read. True when there is any.
  //
  // The array of inks is looked at as GetInks reads it; with `filmInks`, as GetInksDigFilm does. A
  // Get of one kind reads no inks of the other. Coverage counts as read where its ink is. What
  // SetUsedDigitalJobRefs wrote is always listed: its Get does not find it. A list that has no Get
  // (SetMetaDataDigFilms) is not looked at. Takes time in step with the packet's size.
  bool GetUnreadItems(std::vector<XMPlUnreadItems>& unread) const;
  bool GetUnreadItems(std::vector<XMPlUnreadItems>& unread, bool filmInks) const;

  // What the items that are read hold beyond their records, and a Get and Set of the list drops:
  // fields that no record has, fields of a group that is not complete, qualifiers, values of
  // another form than the field's. In lists and ways as above. True when there is any.
  bool GetUnreadFields(std::vector<XMPlUnreadField>& unread) const;
  bool GetUnreadFields(std::vector<XMPlUnreadField>& unread, bool filmInks) const;

  // --- Document scalars -----------------------------------------------------------------------
  // One value each. Before reading, a Get sets its output to 0, false or empty, or as said here.

  bool GetNrPages(int& pages) const;
  bool SetNrPages(int pages);

  bool GetScreenReg(bool& registration) const;  // whether the document carries screen registration
  bool SetScreenReg(bool registration);

  bool GetIsTrapped(bool& trapped) const;
  bool SetIsTrapped(bool trapped);

  bool GetStartLogPage(int& page) const;  // the first logical page
  bool SetStartLogPage(int page);

  bool GetSmartID(std::string& id) const;  // absent: `id` keeps the caller's text
  bool SetSmartID(const std::string& id);

  bool GetRectoVerso(std::string& sides) const;  // absent: `sides` keeps the caller's text
  bool SetRectoVerso(const std::string& sides);  // how the sides are printed

  bool GetPDFNativeVersion(int& version) const;
  bool SetPDFNativeVersion(int version);  // 0 deletes the property

  bool GetPDFNativeType(std::string& type) const;
  bool SetPDFNativeType(const std::string& type);

  // The version of the RIP that made the native PDF; absent: "undetermined".
  bool GetPDFNativeVindrelVersion(std::string& version) const;
  bool SetPDFNativeVindrelVersion(const std::string& version);

  bool GetDigitalFilmVersion(int& version) const;
  bool SetDigitalFilmVersion(int version);

  bool GetNrInksOriginalDocument(int& inks) const;
  bool SetNrInksOriginalDocument(int inks);

  bool GetDigitalJobVersion(int& version) const;
  bool SetDigitalJobVersion(int version);

  bool GetVDPVersion(int& version) const;  // variable-data content
  bool SetVDPVersion(int version);         // 0 deletes the property

  // --- Document-level records -----------------------------------------------------------------
  // Three-way fields, where a Set says so: an empty field leaves the stored property as it is, a
  // single blank " " deletes it, any other text replaces it.

  // True when at least one of the six properties exists; absent ones are empty. Deliberately
  // reads the last job reference of the packet while SetJobData writes the first: where a packet
  // holds several, a Get does not see what a Set wrote.
  bool GetJobData(XMPlJobData& job) const;
  // Three-way fields. Creates a job reference when the packet has none, also for an empty record.
  bool SetJobData(const XMPlJobData& job);

  // True when at least one of the seven properties exists; absent ones are empty.
  bool GetProdData(XMPlProdData& product) const;
  bool SetProdData(const XMPlProdData& product);  // three-way fields

  // True when at least one of the six properties exists; absent ones are empty.
  bool GetDocumentData(XMPlDocData& data) const;
  // Three-way fields; a date "now" is the current date and time, one and the same for all dates of
  // the call. A description replaces those in all languages. It is stored where dc:description
  // is: XMP knows both as one.
  bool SetDocumentData(const XMPlDocData& data);

  // True when at least one of the four properties exists. Deliberately never fills `comments`,
  // which keeps the caller's text; absent others are empty.
  bool GetDocumentVersion(XMPlDocVersion& version) const;
  bool SetDocumentVersion(const XMPlDocVersion& version);  // three-way fields, "now" as above

  // Answers whether "version" exists. Absent, `version` is left unchanged as a whole; else absent
  // texts are empty. Lets a toolkit error (XMP_Error: a version that is no number) pass to the
  // caller; standard exceptions become the error text.
  bool GetDigitalFilmVersionDetailed(XMPlDigFilmVersion& version) const;
  bool SetDigitalFilmVersionDetailed(const XMPlDigFilmVersion& version);

  // The document that this one was derived from: only `instanceID` and `renditionClass` take part.
  // True when both exist. The first is stored as soon as it is found; an absent one is unchanged.
  bool GetBaseDoc(XMPlExtRef& base) const;
  bool SetBaseDoc(const XMPlExtRef& base);

  // True when all ten properties exist. Reads vsize, hsize, margbot, margtop, margleft, margright,
  // vshrink, hshrink, units, readerspread in this order into their fields, up to the first that is
  // absent; that and the rest are unchanged.
  bool GetDimDat(XMPlDimDat& dimensions) const;
  bool SetDimDat(const XMPlDimDat& dimensions);

  // True when the five basic properties exist. `basicOnly` and `hasMargins` tell which of the later
  // groups were complete; margins that are not are 0. Of an incomplete group, the fields found
  // before the gap are stored. Lets a toolkit error (XMP_Error) pass to the caller; standard
  // exceptions become the error text. So does SetDimDatDigFilm.
  bool GetDimDatDigFilm(XMPlDimDatDigFilm& dimensions) const;
  // Writes the groups that `basicOnly` and `hasMargins` announce; a stored group that they do not
  // announce stays.
  bool SetDimDatDigFilm(const XMPlDimDatDigFilm& dimensions);

  // Answers whether the description exists: the other two are read in any case. The location is
  // returned as stored, whatever it is.
  bool GetColorSpace(XMPlColorSpace& colours) const;
  // False, with "Illegal value for profile location" and nothing written, for a location that is
  // none of the four.
  bool SetColorSpace(const XMPlColorSpace& colours);

  // Standard schemas, for other tools. Each field is written, or deleted when it is empty (or not
  // valid).
  bool SetPDFData(const XMPlPDFData& data);
  bool SetMMData(const XMPlMMData& data);

  // --- Inks -----------------------------------------------------------------------------------

  // The document's inks with their coverage. Answers whether the ink list exists, also when no ink
  // was read. An unreadable coverage is no error: `coverageValid` is false then. With
  // `excludeOmask`, inks whose attribute is "omask" are left out; without the flag, none.
  bool GetInks(std::vector<XMPlInk>& inks) const;
  bool GetInks(std::vector<XMPlInk>& inks, bool excludeOmask) const;
  // Without `writeBookAndVxname`, the stored inks have neither `book` nor `vxname` afterwards.
  bool SetInks(const std::vector<XMPlInk>& inks, bool writeBookAndVxname);
  // Appends the inks that the stored list does not hold yet (operator==); of equal inks, the stored
  // one stays. Writes only when an ink was added, and then deliberately drops the coverage of all
  // inks: it was measured for another set. The flag is that of SetInks, for the stored inks too.
  // True but for a handle without metadata; an error of reading or writing is in ErrStr() alone.
  bool MergeInks(const std::vector<XMPlInk>& inks, bool writeBookAndVxname);

  // Answers whether the list exists. An empty `printingmethod` is not stored and reads back as
  // "unknown".
  bool GetInkProperties(std::vector<XMPlInkProperty>& properties) const;
  bool SetInkProperties(const std::vector<XMPlInkProperty>& properties);

  // The inks of a digital film, stored in the same array as the document's inks. The Get lets a
  // toolkit error (XMP_Error) pass to the caller; standard exceptions become the error text.
  bool GetInksDigFilm(std::vector<XMPlInkDigFilm>& inks) const;
  // Without `withBookAndName`, `book` and `vxname` are not stored.
  bool SetInksDigFilm(const std::vector<XMPlInkDigFilm>& inks, bool withBookAndName);

  // The digital jobs that a film was made from. Deliberately asymmetric: the Get reads fields of
  // another namespace than the Set writes, and does not find what the Set wrote.
  bool GetUsedDigitalJobRefs(std::vector<XMPlUsedDigFilmRef>& refs) const;
  bool SetUsedDigitalJobRefs(const std::vector<XMPlUsedDigFilmRef>& refs);

  // DGC curves. Stored numbers are each followed by one blank. A stored text whose last number is
  // not ends the Get with std::length_error; the curves before it are in `dgcs`.
  bool GetDgcs(std::vector<XMPlDgcc>& dgcs) const;
  bool SetDgcs(const std::vector<XMPlDgcc>& dgcs);

  // One entry for each separation of a digital film. There is no Get.
  bool SetMetaDataDigFilms(const std::vector<XMPlMetaDataDigFilm>& films);

  // --- Screening ------------------------------------------------------------------------------
  // Screens are stored in numbered groups. Reading stops at the first group that yields no screen.

  // All groups in one list, or, when they yield nothing, the list of the older layout.
  bool GetScreens(std::vector<XMPlScreen>& screens) const;
  // One group, counted from 1.
  bool GetScreens(std::vector<XMPlScreen>& screens, int group) const;
  // Replaces all groups by one. A list of the older layout stays where it is.
  bool SetScreens(const std::vector<XMPlScreen>& screens);

  bool GetScreenContainer(std::vector<std::vector<XMPlScreen>>& groups) const;
  bool SetScreenContainer(const std::vector<std::vector<XMPlScreen>>& groups);

  // The files that the document uses.
  bool GetUsedRefs(std::vector<XMPlUsedRef>& refs) const;
  bool SetUsedRefs(const std::vector<XMPlUsedRef>& refs);

  // --- Resources ------------------------------------------------------------------------------

  // The files that the document refers to. Without `verbatim`, runs of numbered images are stored
  // as one entry each (SimplifyExtRefs) and read back as one record for each file (ExpandExtRefs);
  // with it, the list is read and stored as it is. The flag is false where it is not given. Read
  // from the current layout, and only when that has no first entry from the old one. Expansion
  // throws what ExpandExtRefs throws: then ErrStr() is empty and `refs` holds the list as stored.
  bool GetExtRefs(std::vector<XMPlExtRef>& refs) const;
  bool GetExtRefs(std::vector<XMPlExtRef>& refs, bool verbatim) const;
  // Writes both layouts.
  bool SetExtRefs(const std::vector<XMPlExtRef>& refs);
  bool SetExtRefs(const std::vector<XMPlExtRef>& refs, bool verbatim);
  // The old layout alone: it holds `instanceID` and `renditionClass`; other fields keep their
  // defaults. Nothing is expanded or compacted.
  bool GetOldExtRefs(std::vector<XMPlExtRef>& refs) const;
  bool SetOldExtRefs(const std::vector<XMPlExtRef>& refs);
  // Appends the references that the stored (expanded) list does not hold yet. For those that it
  // does (operator==), adds up the counts; an unknown count (-1) wins. Writes only when a reference
  // was added: a merge that changes nothing but counts deliberately leaves the packet as it is.
  // True but for a handle without metadata; an error of reading or writing is in ErrStr() alone.
  // Throws what ExpandExtRefs throws, and has written nothing then.
  bool MergeExtRefs(const std::vector<XMPlExtRef>& refs);

  // The list with runs of numbered images compacted: references of type "image" and page 0 whose
  // name ends in "_", 3 to 9 digits and an extension. Other references come first, unchanged; then
  // the runs, each under the first member's rendition class. Works on `refs` alone.
  std::vector<XMPlExtRef> SimplifyExtRefs(const std::vector<XMPlExtRef>& refs) const;
  // The list with compacted runs ("files:...") expanded in their places, each file's name beginning
  // with "file:". Works on `refs` alone. Throws std::logic_error, "bad extref", for a run that
  // cannot be read, and std::length_error for runs of more than ten million files in all, or of
  // more than 4 GiB of names.
  std::vector<XMPlExtRef> ExpandExtRefs(const std::vector<XMPlExtRef>& refs) const;

  // The structural design (CAD) files. Only `instanceID` and `renditionClass` are stored; other
  // fields keep their defaults.
  bool GetCadFiles(std::vector<XMPlExtRef>& files) const;
  bool SetCadFiles(const std::vector<XMPlExtRef>& files);
  // Appends the files that the stored list does not hold yet (operator==). Stored files have page
  // -1: a file with another page is always appended. Writes only when a file was added. True but
  // for a handle without metadata; an error of reading or writing is in ErrStr() alone.
  bool MergeCadFiles(const std::vector<XMPlExtRef>& files);

  // Without `keepDuplicates`, an embedded font is left out when a font that is not embedded has the
  // same file name behind the last ";" of `fontfile`. The flag is true where it is not given.
  bool GetFonts(std::vector<XMPlFont>& fonts) const;
  bool GetFonts(std::vector<XMPlFont>& fonts, bool keepDuplicates) const;
  // Stores the fonts sorted by operator<; the order among fonts that contradict each other there
  // is not stated.
  bool SetFonts(const std::vector<XMPlFont>& fonts);
  // Appends the fonts that the stored list does not hold yet (operator==). Writes, sorted, only
  // when a font was added. True but for a handle without metadata; an error of reading or writing
  // is in ErrStr() alone.
  bool MergeFonts(const std::vector<XMPlFont>& fonts);

  bool GetBarcodes(std::vector<XMPlBarcode>& barcodes) const;
  bool SetBarcodes(const std::vector<XMPlBarcode>& barcodes);
  // Appends the barcodes that the stored list does not hold yet (operator==). Writes only when one
  // was added. True but for a handle without metadata; an error of reading or writing is in
  // ErrStr() alone.
  bool MergeBarcodes(const std::vector<XMPlBarcode>& barcodes);

  bool GetLayers(std::vector<XMPlLay>& layers) const;
  bool SetLayers(const std::vector<XMPlLay>& layers);
  // Appends the layers whose name the stored list does not hold yet; the flags of a stored one
  // stay. Writes only when a layer was added. True but for a handle without metadata; an error of
  // reading or writing is in ErrStr() alone.
  bool MergeLayers(const std::vector<XMPlLay>& layers);

  // Reads of each range the inks up to the first that is missing.
  bool GetPagRanges(std::vector<XMPlPagRange>& ranges) const;
  bool SetPagRanges(const std::vector<XMPlPagRange>& ranges);

  bool GetSmartNames(std::vector<XMPlSmartName>& names) const;
  bool SetSmartNames(const std::vector<XMPlSmartName>& names);

  // --- Layout ---------------------------------------------------------------------------------

  bool GetRepeats(std::vector<XMPlRepeat>& repeats) const;
  bool SetRepeats(const std::vector<XMPlRepeat>& repeats);

  // True when all six properties exist. Reads them in the record's order into their fields, up to
  // the first that is absent; that and the rest are unchanged.
  bool GetCadReg(XMPlCadReg& registration) const;
  bool SetCadReg(XMPlCadReg& registration);  // does not change `registration`

  // --- Merging --------------------------------------------------------------------------------

  // Merges the inks, external references, fonts, CAD files, barcodes and layers of another packet
  // into this handle's, by their own Merge operations; `inkFlag` is MergeInks' flag. Always true.
  // Does not empty the error text itself: ErrStr() is what the last Merge that ran has left, and
  // the error text from before when none ran (a packet that cannot be parsed has no lists).
  // Throws as the constructor and MergeExtRefs do.
  bool MergeXML(const std::string& packetText, bool inkFlag);

  // Merges the packets of several digital films into one job on this handle. The first packet that
  // is complete (dimensions, inks, colour space, screens, used references, page ranges) is the base
  // and gives the document's records; each later packet that has inks, screens and page ranges adds
  // its inks, their screen groups, its DGC curves, and by `mode`:
  //   0      separations of the same pages: each added ink gets the next ink number in the first
  //          page range; the film version's structure becomes "Composite"
  //   1      further pages: the packet's first page range is renumbered to follow the stored ones;
  //          the structure becomes "Separated", unless it is "Composite" in any case of letters
  //   other  neither
  // `writeBookAndName` is SetInksDigFilm's flag. One packet alone, or none that is complete: the
  // first packet is loaded as by SetXML. None at all: nothing happens. Always true; ErrStr() is
  // what the last SetPagRanges or SetXML left. Incomplete packets are passed over silently.
  // Ink numbers go on from 0 where a page range has none; a screen group that a packet lacks is
  // empty. XMP_Error from the film data of a packet, and what GetDgcs throws, pass to the caller
  // with this handle unchanged.
  bool MergeXML(const std::vector<std::string>& packets, int mode, bool writeBookAndName);

  // Copies the properties of schemas that this library does not manage from another handle's
  // metadata, node by node, in their form and with their qualifiers. A value that exists here stays
  // as it is; an array or structure that exists here gets the items and fields that it lacks. URIs
  // become plain texts. Leaves out: all private and XMP core namespaces, dc:description, dc:format,
  // and the values of pdf:Producer, pdf:Version and pdf:Trapped. Answers whether there was any such
  // node, copied or not. Leaves the error text alone; a toolkit error (XMP_Error: an array here, a
  // text there) passes to the caller, with the nodes copied so far. False when either handle is
  // without metadata.
  bool MergeNonOrvo(const XMPlib* other);

  // Whether dc:format says that this is an Illustrator document,
  // "application/vnd.adobe.illustrator".
  bool IsNonPDFCompatible() const;

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
