/// Takes the place of three steps by which the XML library sets itself up where its archive is
/// linked in: what schemas need to check types and patterns. Schemas are off wherever a document is
/// read, nothing else asks for it, and it takes longer to set up than a small document to read.

namespace refhost::linked {

void SetUpCharacterClasses() asm(
    "__wrap__ZN11xercesc_3_214XMLInitializer23initializeRangeTokenMapEv");
void SetUpExpressions() asm(
    "__wrap__ZN11xercesc_3_214XMLInitializer27initializeRegularExpressionEv");
void SetUpDataTypes() asm(
    "__wrap__ZN11xercesc_3_214XMLInitializer34initializeDatatypeValidatorFactoryEv");

void SetUpCharacterClasses() {}
void SetUpExpressions() {}
void SetUpDataTypes() {}

}  // namespace refhost::linked
