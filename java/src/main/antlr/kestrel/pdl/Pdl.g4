// The chart description language. docs/guide/pdl.md has the same grammar for readers; a test holds the words of the two
// together.
//
// Nothing here is recursive but expressions: the lexer's caller bounds how deep their parentheses go.

grammar Pdl;

description: 'chart' text? '{' statement* '}' EOF ;

statement
  : language | page | source | variable | heading | coordinates | scale | axis | element | guide | panels | legend ;

// --- the page ---

language: 'language' text ;

page: 'page' '{' pageOption* '}' ;
pageOption
  : 'width' length   # pageWidth
  | 'height' length  # pageHeight
  | style            # pageStyle
  ;

heading: kind=('title' | 'subtitle' | 'footnote') text ('{' style* '}')? ;

legend
  : 'legend' name '{' legendOption* '}'  # legendOf
  | 'no' 'legends'                       # noLegends
  ;
legendOption
  : 'title' text  # legendTitle
  | 'hidden'      # legendHidden
  ;

// --- data ---

source: 'source' name ;

variable: 'variable' name (kind=('categorical' | 'numeric' | 'date' | 'case') | '=' sum) ('{' variableOption* '}')? ;
variableOption
  : 'from' name                                 # variableSource
  | 'column' text                               # variableColumn
  | 'label' text                                # variableLabel
  | 'categories' text (',' text)*               # variableCategories
  | 'show' number 'as' text                     # variableShow
  | 'order' value (',' value)*                  # variableOrder
  | 'sort' direction=('ascending' | 'descending')  # variableSort
  | 'exclude' value (',' value)*                # variableExclude
  | 'input' text                                # variableInput
  | 'weight'                                    # variableWeight
  | format                                      # variableFormat
  ;

format: 'format' '{' formatOption* '}' ;
formatOption
  : 'decimals' number ('to' number)?  # formatDecimals
  | 'grouping'                        # formatGrouping
  | 'prefix' text                     # formatPrefix
  | 'suffix' text                     # formatSuffix
  | 'pattern' text                    # formatPattern
  | 'missing' text                    # formatMissing
  ;

// --- coordinates, scales, axes ---

coordinates: 'coordinates' '{' coordinatesOption* '}' ;
coordinatesOption
  : 'transpose'                         # transpose
  | 'reflect' dimension 'alternating'?  # reflect
  | 'same' 'ratio'                      # sameRatio
  | 'polar'                             # polar
  | 'view' '{' viewOption* '}'          # view
  ;
viewOption: angle=('distance' | 'phi' | 'theta' | 'zeta') number ;

scale: 'scale' dimension '{' scaleOption* '}' ;
scaleOption
  : 'linear'                                       # scaleLinear
  | 'symmetric'? (curve='log' ('base' number)? | curve='power' number)  # scaleCurved
  | 'reverse'                                      # scaleReverse
  | 'origin' value                                 # scaleOrigin
  | bound=('minimum' | 'maximum') value            # scaleBound
  | 'exact'                                        # scaleExact
  | ends=('nice' | 'tight')                        # scaleEnds
  | 'margins' length length                        # scaleMargins
  ;

axis: 'second'? 'axis' dimension '{' axisOption* '}' ;
axisOption
  : 'label' text                     # axisLabel
  | 'hidden'                         # axisHidden
  | 'opposite'                       # axisOpposite
  | 'derived'                        # axisDerived
  | 'gridlines'                      # axisGridlines
  | 'ticks' '{' tickOption* '}'      # axisTicks
  | style                            # axisStyle
  ;
tickOption
  : 'step' number    # tickStep
  | 'every' number   # tickEvery
  | 'angle' number   # tickAngle
  | 'length' length  # tickLength
  | 'stagger'        # tickStagger
  | format           # tickFormat
  | style            # tickStyle
  ;

dimension: which=('x' | 'y' | 'z') ;

// --- elements ---

element: kind=('point' | 'line' | 'path' | 'bar' | 'area' | 'box' | 'edge' | 'polygon') '{' elementOption* '}' ;
elementOption
  : dimension name ('to' name)?           # elementPosition
  | 'statistic' statistic                 # elementStatistic
  | 'bins' ('{' binOption* '}')?          # elementBins
  | modifier=('stack' | 'dodge' | 'dots') # elementModifier
  | 'stacked' 'dots'                      # elementStackedDots
  | 'cluster' name                        # elementCluster
  | aesthetic                             # elementAesthetic
  | 'label' name ('{' format* '}')?       # elementLabel
  | 'name' text                           # elementName
  | only                                  # elementOnly
  | style                                 # elementStyle
  ;
statistic
  : method=('count' | 'percent' | 'sum' | 'mean' | 'median' | 'minimum' | 'maximum' | 'error' | 'density')
  | cumulative='cumulative' method=('count' | 'percent')
  ;
binOption: setting=('count' | 'width' | 'start') number ;

aesthetic
  : kind=('color' | 'shape' | 'pattern' | 'dash' | 'size' | 'transparency') name ('{' aestheticOption* '}')? ;
aestheticOption
  : 'values' look (',' look)*  # aestheticValues
  | 'value' value look         # aestheticValue
  | 'range' look 'to' look     # aestheticRange
  ;
look: text | number | length ;

only: 'only' name value ;

// --- guides ---

guide
  : 'reference' dimension value ('{' guideOption* '}')?               # referenceGuide
  | 'function' sum ('{' guideOption* '}')?                            # functionGuide
  | 'plane' plane=('xy' | 'xz' | 'yz') ('{' guideOption* '}')?        # planeGuide
  | 'frame' ('{' guideOption* '}')?                                   # frameGuide
  ;
guideOption
  : 'name' text  # guideName
  | only         # guideOnly
  | style        # guideStyle
  ;

// --- panels ---

panels: 'panels' '{' panelOption* '}' ;
panelOption
  : direction=('columns' | 'rows') algebra  # panelVariables
  | 'blend' name ('+' name)+                # panelBlend
  | 'gap' length                            # panelGap
  | 'aspect' number                         # panelAspect
  ;
algebra: name (('*' name)+ | (nests+='/' name)+)? ;

// --- looks ---

style: 'style' '{' styleOption* '}' ;
styleOption
  : property=('color' | 'outline' | 'dash' | 'symbol') text      # styleText
  | property=('stroke' | 'size' | 'width' | 'padding') length    # styleLength
  | property=('pattern' | 'opacity') number                      # styleNumber
  | 'font' (text length? | length)                                # styleFont
  | flag=('bold' | 'italic' | 'hidden')                          # styleFlag
  ;

// --- expressions ---

sum: product (operators+=('+' | '-') product)* ;
product: signed (operators+=('*' | '/') signed)* ;
signed: signs+='-'* power ;
power: primary ('^' exponents+=exponent)* ;
exponent: signs+='-'* primary ;
primary
  : NUMBER                          # numberTerm
  | name ('(' sum (',' sum)* ')')?  # nameTerm
  | '(' sum ')'                     # groupTerm
  ;

// --- values ---

value: number | text ;
number: '-'? NUMBER ;
length: LENGTH ;
text: STRING ;

// Every word of the language may be a name: where a name stands, nothing else can.
name: NAME | QUOTED_NAME | word ;
word
  : 'alternating' | 'angle' | 'area' | 'as' | 'ascending' | 'aspect' | 'axis' | 'bar' | 'base' | 'bins' | 'blend'
  | 'bold'
  | 'box' | 'case' | 'categorical' | 'categories' | 'chart' | 'cluster' | 'color' | 'column' | 'columns' | 'coordinates'
  | 'count' | 'cumulative' | 'dash' | 'date' | 'decimals' | 'density' | 'derived' | 'descending' | 'distance' | 'dodge'
  | 'dots' | 'edge' | 'error' | 'every' | 'exact' | 'exclude' | 'font' | 'footnote' | 'format' | 'frame' | 'from'
  | 'function' | 'gap' | 'gridlines' | 'grouping' | 'height' | 'hidden' | 'input' | 'italic' | 'label' | 'language'
  | 'legend' | 'legends' | 'length' | 'line' | 'linear' | 'log' | 'margins' | 'maximum' | 'mean' | 'median' | 'minimum'
  | 'missing' | 'name' | 'nice' | 'no' | 'numeric' | 'only' | 'opacity' | 'opposite' | 'order' | 'origin' | 'outline'
  | 'padding' | 'page' | 'panels' | 'path' | 'pattern' | 'percent' | 'phi' | 'plane' | 'point' | 'polar' | 'polygon'
  | 'power' | 'prefix' | 'range' | 'ratio' | 'reference' | 'reflect' | 'reverse' | 'rows' | 'same' | 'scale' | 'second'
  | 'shape' | 'show' | 'size' | 'sort' | 'source' | 'stack' | 'stacked' | 'stagger' | 'start' | 'statistic' | 'step'
  | 'stroke' | 'style' | 'subtitle' | 'suffix' | 'sum' | 'symbol' | 'symmetric' | 'theta' | 'ticks' | 'tight' | 'title'
  | 'to' | 'transparency' | 'transpose' | 'value' | 'values' | 'variable' | 'view' | 'weight' | 'width' | 'x' | 'xy'
  | 'xz' | 'y' | 'yz' | 'z' | 'zeta'
  ;

// --- words ---

NAME: [\p{L}_] [\p{L}\p{M}\p{N}_]* ;
QUOTED_NAME: '`' ~[`\r\n]+ '`' ;
LENGTH: DIGITS UNIT ;
NUMBER: DIGITS ;
// What begins as a number and does not end as one, such as 2x.
BAD_NUMBER: DIGITS [\p{L}\p{N}_.%]+ ;
STRING: '"' CHARACTER* '"' ;
OPEN_STRING: '"' CHARACTER* ;
OPEN_NAME: '`' ~[`\r\n]* ;
COMMENT: '#' ~[\r\n]* -> skip ;
SPACE: [ \t\r\n\f\u00A0\uFEFF]+ -> skip ;
// Every other character, so that it is refused where everything else is.
STRANGE: . ;

fragment DIGITS: [0-9]+ ('.' [0-9]+)? ([eE] [+-]? [0-9]+)? ;
fragment UNIT: 'px' | 'pt' | 'mm' | 'cm' | 'in' | '%' ;
fragment CHARACTER: '\\' ~[\r\n] | ~["\\\r\n] ;
