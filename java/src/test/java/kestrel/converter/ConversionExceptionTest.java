package kestrel.converter;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.api.Test;

class ConversionExceptionTest {
  @Test
  void saysWhereBeforeWhat() {
    assertEquals("line 3, column 14: no number", ConversionException.at(3, 14, "no number").getMessage());
  }
}
