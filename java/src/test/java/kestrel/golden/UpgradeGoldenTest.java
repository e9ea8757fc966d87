package kestrel.golden;

import static org.junit.jupiter.api.Assertions.assertDoesNotThrow;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.List;
import kestrel.converter.Converter;
import kestrel.support.Goldens;
import kestrel.support.OldCharts;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** Old charts, what they become, and what of them is lost. */
class UpgradeGoldenTest {
  static List<String> names() {
    return OldCharts.names();
  }

  @Test
  void thereAreTenChartsAndMore() {
    assertTrue(names().size() >= 10);
  }

  @Test
  void theExampleOfTheGuideIsCarriedOverWhole() throws Exception {
    String guide = OldCharts.text(Schemas.read(Schemas.sourceDirectory().resolve("docs/guide/lumoml.md")));
    byte[] example =
        OldCharts.bytes(guide.substring(guide.indexOf("<graph version"), guide.indexOf("</graph>\n```") + 8));
    Schemas.validate("lumoml14.xsd", example);
    assertEquals("", OldCharts.text(Converter.upgradeWithReport(example)[1]));
  }

  @ParameterizedTest
  @MethodSource("names")
  void theOldChartIsValid(String name) {
    assertDoesNotThrow(() -> Schemas.validate("lumoml14.xsd", OldCharts.old(name)));
  }

  @ParameterizedTest
  @MethodSource("names")
  void theUpgradedChartIsValid(String name) {
    assertDoesNotThrow(() -> Schemas.validate("lumoml.xsd", Converter.upgrade(OldCharts.old(name))));
  }

  @ParameterizedTest
  @MethodSource("names")
  void theOldChartBecomesTheNewOne(String name) throws Exception {
    byte[][] upgraded = Converter.upgradeWithReport(OldCharts.old(name));
    Goldens.compare(OldCharts.folder().resolve(name + ".xml"), Goldens.indented(OldCharts.text(upgraded[0])));
    Goldens.compare(OldCharts.folder().resolve(name + ".report.txt"), OldCharts.text(upgraded[1]));
  }
}
