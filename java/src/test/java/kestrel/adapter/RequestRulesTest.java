package kestrel.adapter;

import static kestrel.support.TemplateRequests.found;
import static kestrel.support.TemplateRequests.refusal;
import static kestrel.support.TemplateRequests.reply;
import static kestrel.support.TemplateRequests.root;
import static kestrel.support.TemplateRequests.template;
import static org.junit.jupiter.api.Assertions.assertDoesNotThrow;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.charset.StandardCharsets;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** A request that breaks its schema, or what a schema cannot say, is refused with the place and the rule. */
class RequestRulesTest {
  private static final String SET = "<mapping slotName='s' slotValue='s' categorical='true' "
      + "variableType='MultipleDichotomy'>"
      + "<multipleResponseInfo MRSetName='s' enhancedDichotomy='false' countedValue='1'>"
      + "<variable varName='a' varLabel='A' labelingVariableName=''/>"
      + "<variable varName='b' varLabel='' labelingVariableName='n'/></multipleResponseInfo>"
      + "<lumoml:format id='f' baseFormat='1' errorCharacter='*' maximumFractionDigits='2' minimumFractionDigits='0' "
      + "pattern='0' prefix='' suffix='' useGrouping='true'><lumoml:relabel from='1' to='a'/><lumoml:relabel/>"
      + "</lumoml:format></mapping>";

  /** Everything that a request may have. */
  private static final String WHOLE = root("<templateSpecification templateName='t' locale='en' location='file'>"
      + "<templateContents>"
      + template("v scale; s categorical sets='true'; L label",
          "<graph><x variable='w'/><y variable='u'/></graph><sourceVariable id='w' t:slot='v'/>"
              + "<sourceVariable id='u' t:slot='s'/><extension a='{L}'/>")
      + "</templateContents>"
      + "<map dataFile='d' dataMapRepositoryFolderSpec='' dataMapLocation='KOS' referenceMap='r' "
      + "referenceMapLocation='file' mapKey='k' showAllFeatures='false'/>"
      + "<mapping slotName='v' slotValue='a' categorical='false' labelingVariableName='n' dataSetName='d' "
      + "slotLabel='l' weight='true'/>" + SET + "<mapping slotName='L' slotValue='text'/></templateSpecification>"
      + "<styleSheetSpecification styleSheetName='p' location='KOS' repositoryFolderSpec='f'/>");

  @Test
  void theWholeRequestIsGranted() {
    assertDoesNotThrow(() -> Schemas.validate("template-request.xsd", WHOLE.getBytes(StandardCharsets.UTF_8)));
    assertEquals("true", found(reply(WHOLE), "Lumoml").getAttribute("success"), () -> refusal(WHOLE));
  }

  /** Of the whole request `text` is replaced by `other`: what its schema refuses. */
  @ParameterizedTest
  @CsvSource(delimiter = '|', quoteCharacter = '`',
      value = {"type='request'>| type='request' date='x'>| lumoTemplate has no attribute \"date\"",
          "templateName='t' | `` | templateSpecification needs the attribute templateName",
          "locale='en' | `` | templateSpecification needs the attribute locale",
          "locale='en' location='file'| locale='en' | templateSpecification needs the attribute location",
          "locale='en' location='file'| locale='en' location='web' | location is \"web\"; it is local, KOS or file",
          "templateName='t'| templateName='t' other='' | templateSpecification has no attribute \"other\"",
          "templateName='t'| templateName='t' lumoml:id='' | templateSpecification has no attribute \"id\"",
          "<map dataFile='d'| <map date='' dataFile='d' | map has no attribute \"date\"",
          "showAllFeatures='false'| `` | map needs the attribute showAllFeatures",
          "showAllFeatures='false'| showAllFeatures='no' | showAllFeatures is \"no\"; it is true or false",
          "referenceMapLocation='file'| referenceMapLocation='' | referenceMapLocation is \"\"; it is local, KOS or file",
          "slotName='L' | `` | mapping needs the attribute slotName",
          "slotValue='text' | `` | mapping needs the attribute slotValue",
          "categorical='false'| categorical='yes' | categorical is \"yes\"; it is true or false",
          "weight='true'| weight='no' | weight is \"no\"; it is true, or the attribute is not there",
          "slotLabel='l'| slotlabel='l' | mapping has no attribute \"slotlabel\"",
          "variableType='MultipleDichotomy'| variableType='Single' | variableType is \"Single\"; it is MultipleDichotomy or MultipleCategory",
          "enhancedDichotomy='false'| enhancedDichotomy='maybe' | enhancedDichotomy is \"maybe\"; it is true or false",
          "enhancedDichotomy='false'| `` | multipleResponseInfo needs the attribute enhancedDichotomy",
          "MRSetName='s'| `` | multipleResponseInfo needs the attribute MRSetName",
          "varName='a'| `` | variable needs the attribute varName",
          "varLabel='A'| `` | variable needs the attribute varLabel",
          "varLabel='A' labelingVariableName=''| varLabel='A' | variable needs the attribute labelingVariableName",
          "<variable varName='a'| <member/><variable varName='a' | multipleResponseInfo holds no element \"member\"",
          "pattern='0'| patern='0' | format has no attribute \"patern\"",
          "maximumFractionDigits='2'| maximumFractionDigits='-2' | maximumFractionDigits is \"-2\"; it is a whole number from 0",
          "minimumFractionDigits='0'| minimumFractionDigits='a' | minimumFractionDigits is \"a\"; it is a whole number from 0",
          "baseFormat='1'| baseFormat='date' | baseFormat is \"date\"; it is a whole number",
          "useGrouping='true'| useGrouping='yes' | useGrouping is \"yes\"; it is true or false",
          "<lumoml:relabel/>| <relabel/> | format holds no element \"relabel\"",
          "<lumoml:relabel/>| <lumoml:label/> | format holds no element \"label\"",
          "<lumoml:relabel/>| <lumoml:relabel by=''/> | relabel has no attribute \"by\"",
          "styleSheetName='p'| `` | styleSheetSpecification needs the attribute styleSheetName",
          "styleSheetName='p' location='KOS'| styleSheetName='p' location='file' | location is \"file\"; it is local or KOS",
          "styleSheetName='p' location='KOS'| styleSheetName='p' | styleSheetSpecification needs the attribute location",
          "repositoryFolderSpec='f'| repositoryFolderSpec='' | repositoryFolderSpec is \"\"; it is the folder's name, or the attribute is not there",
          "<map dataFile='d'| <templateContents><a/></templateContents><map dataFile='d' | there is one templateContents at most",
          "<mapping slotName='v'| <map showAllFeatures='true'/><mapping slotName='v' | there is one map at most",
          "<templateContents>| <mapping slotName='a' slotValue='b'/><templateContents> | templateContents stands before mapping",
          "</templateContents><map| </templateContents>words<map | templateSpecification holds no text: \"words\"",
          "</templateContents><map| </templateContents><other/><map | templateSpecification holds no element \"other\"",
          "</templateContents><map| </templateContents><lumoml:map/><map | templateSpecification holds no element \"map\"",
          "</templateContents><map| <a/></templateContents><map | templateContents holds one element, the template",
          "<styleSheetSpecification| <styleSheetSpecification styleSheetName='p' location='KOS'/><styleSheetSpecification | there is one styleSheetSpecification at most"})
  void
  aRequestThatBreaksItsSchemaIsRefused(String text, String other, String message) {
    String broken = broken(text, other);
    assertThrows(
        Exception.class, () -> Schemas.validate("template-request.xsd", broken.getBytes(StandardCharsets.UTF_8)));
    assertRefused(broken, message);
  }

  @ParameterizedTest
  @CsvSource(delimiter = '|', quoteCharacter = '`',
      value = {"locale='en' location='file'| locale='en' location='local' | templateContents goes with the location \"file\"",
          "locale='en' location='file'| locale='en' location='file' repositoryFolderSpec='f' | repositoryFolderSpec goes with the location \"KOS\"",
          "styleSheetName='p' location='KOS'| styleSheetName='p' location='local' | repositoryFolderSpec goes with the location \"KOS\"",
          "dataFile='d' | `` | dataFile and dataMapLocation stand together",
          "referenceMapLocation='file' | `` | referenceMap and referenceMapLocation stand together",
          "dataMapRepositoryFolderSpec='' | `` | dataMapRepositoryFolderSpec stands beside the location \"KOS\", and only there",
          "referenceMap='r' | referenceMap='r' refMapRepositoryFolderSpec='' | refMapRepositoryFolderSpec stands beside the location \"KOS\", and only there",
          "slotValue='text' | slotValue='text' slotLabel='x' | only the mapping of a variable, which has categorical, has slotLabel",
          "categorical='true' variableType='MultipleDichotomy'| variableType='MultipleDichotomy' | only the mapping of a variable, which has categorical, has variableType, multipleResponseInfo, format",
          "variableType='MultipleDichotomy'| `` | variableType and multipleResponseInfo stand together",
          "weight='true'| variableType='MultipleCategory' | variableType and multipleResponseInfo stand together",
          "countedValue='1'| `` | countedValue stands beside the type \"MultipleDichotomy\", and only there",
          "variableType='MultipleDichotomy'| variableType='MultipleCategory' | countedValue stands beside the type \"MultipleDichotomy\", and only there"})
  void
  aRequestThatBreaksWhatASchemaCannotSayIsRefused(String text, String other, String message) {
    assertRefused(broken(text, other), message);
  }

  @Test
  void aMapHasOneOfItsFilesAtLeast() {
    assertRefused(root("<templateSpecification templateName='t' locale='' location='local'>"
                      + "<map mapKey='k' showAllFeatures='true'/></templateSpecification>"),
        "a map has a dataFile, a referenceMap, or both");
  }

  @Test
  void aMemberOfASetHasAName() {
    assertRefused(broken("varName='a'", "varName=''"), "varName is empty");
  }

  private static String broken(String text, String other) {
    assertTrue(WHOLE.contains(text), text);
    return WHOLE.replace(text, other == null ? "" : other);
  }

  private static void assertRefused(String request, String message) {
    String code = refusal(request);
    assertTrue(code.startsWith("RequestInvalid: the request, line 1, column "), code);
    assertTrue(code.endsWith(": " + message), code);
  }
}
