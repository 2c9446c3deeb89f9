"""Schemas and documents for generate.py."""

import itertools

NAMESPACE = "urn:example:bench"
HEADER = (
    '<?xml version="1.0" encoding="UTF-8"?>\n'
    '<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema"\n'
    f'           xmlns:tns="{NAMESPACE}" targetNamespace="{NAMESPACE}"\n'
    '           elementFormDefault="qualified">\n'
)
FOOTER = "</xs:schema>\n"
BUILTIN_TYPES = ("string", "int", "decimal", "date", "boolean", "dateTime", "long", "token")


def write_schema(path, components):
    """One schema file from an iterable of its global components."""
    with open(path, "w", encoding="utf-8") as file:
        file.write(HEADER)
        file.writelines(components)
        file.write(FOOTER)
    return path


def builtin(index):
    return "xs:" + BUILTIN_TYPES[index % len(BUILTIN_TYPES)]


def element(name, type_name, more=""):
    return f'<xs:element name="{name}" type="{type_name}"{more}/>\n'


def record(name, particles):
    """A global element of an anonymous type."""
    yield f'<xs:element name="{name}"><xs:complexType><xs:sequence>\n'
    yield from particles
    yield "</xs:sequence></xs:complexType></xs:element>\n"


def complex_type(name, particles):
    yield f'<xs:complexType name="{name}"><xs:sequence>\n'
    yield from particles
    yield "</xs:sequence></xs:complexType>\n"


# --- One schema with every construct -----------------------------------------

GENERATIONS = 4  # a base and three generations of extension
LEAF_EVERY = 10  # every tenth family refers to no other family
LARGE_ENUMERATION = 1000


def enumeration_size(family):
    if family % 100 == 50:
        return LARGE_ENUMERATION
    return 200 if family % 25 == 10 else (5, 10, 20, 40)[family % 4]


def enumeration_type(name, count):
    yield f'<xs:simpleType name="{name}"><xs:restriction base="xs:string">\n'
    yield from (f'<xs:enumeration value="VALUE-{i:05}"/>\n' for i in range(count))
    yield "</xs:restriction></xs:simpleType>\n"


def simple_types(family):
    yield (
        f'<xs:simpleType name="Amount{family}"><xs:restriction base="xs:decimal">'
        '<xs:totalDigits value="11"/><xs:fractionDigits value="2"/>'
        "</xs:restriction></xs:simpleType>\n"
    )
    yield from enumeration_type(f"Code{family}", enumeration_size(family))
    yield (
        f'<xs:simpleType name="Choice{family}"><xs:union memberTypes="tns:Amount{family}">'
        '<xs:simpleType><xs:restriction base="xs:string"><xs:maxLength value="12"/>'
        "</xs:restriction></xs:simpleType></xs:union></xs:simpleType>\n"
    )


def group_components(family):
    yield f'<xs:group name="Group{family}"><xs:sequence>\n'
    yield from (element(f"Grouped{family}_{i}", builtin(i)) for i in range(3))
    yield "</xs:sequence></xs:group>\n"
    yield (
        f'<xs:attributeGroup name="Attributes{family}">'
        '<xs:attribute name="version" type="xs:int" use="required"/>'
        '<xs:attribute name="source" type="xs:string"/></xs:attributeGroup>\n'
    )


def base_type(family):
    leaf = family - family % LEAF_EVERY
    name = f"Type{family}_0"
    yield f'<xs:complexType name="{name}"><xs:sequence>\n'
    yield element(f"Id{family}", "xs:int")
    yield element(f"Name{family}", "xs:string", ' minOccurs="0"')
    yield element(f"Amount{family}", f"tns:Amount{family}")
    yield element(f"Code{family}", f"tns:Code{family}")
    yield element(f"Choice{family}", f"tns:Choice{family}")
    if leaf != family:
        yield element(f"Part{family}", f"tns:Type{leaf}_0", ' maxOccurs="unbounded"')
    yield f'<xs:group ref="tns:Group{family}"/></xs:sequence>'
    yield f'<xs:attributeGroup ref="tns:Attributes{family}"/></xs:complexType>\n'


def extension_type(family, generation):
    yield (
        f'<xs:complexType name="Type{family}_{generation}"><xs:complexContent>'
        f'<xs:extension base="tns:Type{family}_{generation - 1}"><xs:sequence>\n'
    )
    for i in range(3):
        yield element(f"Added{family}_{generation}_{i}", builtin(family + i))
    yield element(f"Extra{family}_{generation}", f"tns:Amount{family}")
    yield (
        f'</xs:sequence><xs:attribute name="kind{generation}" type="xs:string"/>'
        "</xs:extension></xs:complexContent></xs:complexType>\n"
    )


def many_types(path, count):
    """`count` complex types with all that they use, and a head of a few of them."""

    def components():
        families = -(-count // GENERATIONS)
        for family in range(families):
            yield from simple_types(family)
            yield from group_components(family)
            yield from base_type(family)
            for generation in range(1, min(GENERATIONS, count - family * GENERATIONS)):
                yield from extension_type(family, generation)
        used = [f"tns:Type{family}_0" for family in range(0, families, max(1, families // 5))]
        used.append("tns:Type0_3" if count >= GENERATIONS else "tns:Type0_0")
        yield from record("Message", (element(f"Body{i}", name) for i, name in enumerate(used)))

    return write_schema(path, components())


def tiny(path, _size):
    """A schema of one small record."""
    particles = (element(f"Field{i}", builtin(i)) for i in range(4))
    return write_schema(path, record("Order", particles))


# --- One construct, many times -----------------------------------------------


def global_elements(count):
    return (element(f"Global{i}", builtin(i)) for i in range(count))


def elements_without_references(path, count):
    """Global elements, each of them a record of its own."""
    return write_schema(path, global_elements(count))


def elements_with_references(path, count):
    """Global elements that all stand in one record."""
    refs = (f'<xs:element ref="tns:Global{i}"/>\n' for i in range(count))
    return write_schema(path, itertools.chain(global_elements(count), record("Head", refs)))


def flat_record(path, count):
    """One record of `count` items, each with a name of its own."""
    particles = (element(f"Item{i}", builtin(i)) for i in range(count))
    return write_schema(path, record("Head", particles))


SHARED_NAMES = 10


def shared_names_record(path, count):
    """One record of `count` items that share a few names."""
    particles = (
        element(f"Item{i % SHARED_NAMES}", builtin(i % SHARED_NAMES)) for i in range(count)
    )
    return write_schema(path, record("Head", particles))


NESTED_WIDTH = 100


def nested_record(path, count):
    """A small schema whose record has about `count` items: types of a hundred
    elements each, one inside the other, and a head that uses the outermost
    type as often as it takes. The names are of everyday length."""

    def components():
        size, depth = 1, 0
        while size * NESTED_WIDTH <= count:
            inner = f"tns:Level{depth - 1}" if depth > 0 else "xs:string"
            particles = (
                element(f"Delivery_Address{depth}_{i}", inner) for i in range(NESTED_WIDTH)
            )
            yield from complex_type(f"Level{depth}", particles)
            size, depth = size * NESTED_WIDTH, depth + 1
        outermost = f"tns:Level{depth - 1}" if depth > 0 else "xs:string"
        yield from record(
            "Head", (element(f"Delivery_Block{i}", outermost) for i in range(count // size))
        )

    return write_schema(path, components())


def refused_items(path, count):
    """One record of `count` elements, every second of which would make the
    record contain itself and has to be taken out of the long list again."""
    particles = (
        element(f"Item{i}", "tns:Node" if i % 2 else "xs:string", ' minOccurs="0"')
        for i in range(count)
    )
    head = element("Head", "tns:Node")
    return write_schema(path, itertools.chain(complex_type("Node", particles), [head]))


def enumeration(path, count):
    """One element with an enumeration of `count` values."""
    head = record("Head", [element("Code", "tns:Code")])
    return write_schema(path, itertools.chain(enumeration_type("Code", count), head))


# --- A document and its schema -----------------------------------------------

MEGABYTE = 1_000_000


def document_schema(path):
    line = [element("sku", "xs:token"), element("quantity", "xs:positiveInteger")] + [
        element("price", "tns:Price"),
        element("note", "xs:string", ' minOccurs="0"'),
    ]
    order = [
        element("customer", "xs:string"),
        element("placed", "xs:dateTime"),
        element("state", "tns:State"),
        element("line", "tns:Line", ' maxOccurs="unbounded"'),
    ]

    def components():
        yield (
            '<xs:simpleType name="Price"><xs:restriction base="xs:decimal">'
            '<xs:totalDigits value="9"/><xs:fractionDigits value="2"/>'
            "</xs:restriction></xs:simpleType>\n"
            '<xs:simpleType name="State"><xs:restriction base="xs:string">'
            '<xs:enumeration value="open"/><xs:enumeration value="paid"/>'
            '<xs:enumeration value="shipped"/></xs:restriction></xs:simpleType>\n'
        )
        yield from complex_type("Line", line)
        yield '<xs:complexType name="Order"><xs:sequence>\n'
        yield from order
        yield (
            '</xs:sequence><xs:attribute name="number" type="xs:long" use="required"/>'
            "</xs:complexType>\n"
        )
        yield from record("orders", [element("order", "tns:Order", ' maxOccurs="unbounded"')])

    return write_schema(path, components())


def document_order(number):
    lines = "".join(
        f"<line><sku>SKU-{number % 9973:05}-{i}</sku><quantity>{1 + (number + i) % 12}</quantity>"
        f"<price>{number % 1000}.{i:02}</price>"
        + ("<note>Leave it with the neighbours &amp; ring twice.</note>" if i == 0 else "")
        + "</line>\n"
        for i in range(1 + number % 5)
    )
    return (
        f'<order number="{number}"><customer>Customer {number % 4001}</customer>'
        f"<placed>2024-05-{1 + number % 28:02}T10:{number % 60:02}:00</placed>"
        f"<state>{('open', 'paid', 'shipped')[number % 3]}</state>\n{lines}</order>\n"
    )


def document(path, megabytes):
    """A valid document of the given size; its schema stands beside it."""
    schema = document_schema(path.with_suffix(".xsd"))
    left = megabytes * MEGABYTE
    with open(path, "w", encoding="utf-8") as file:
        file.write(
            '<?xml version="1.0" encoding="UTF-8"?>\n'
            f'<orders xmlns="{NAMESPACE}"\n'
            '        xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"\n'
            f'        xsi:schemaLocation="{NAMESPACE} {schema.name}">\n'
        )
        for number in itertools.count(1):
            order = document_order(number)
            file.write(order)
            left -= len(order)
            if left <= 0:
                break
        file.write("</orders>\n")
    return path


# --- Sets of files -----------------------------------------------------------

LAYERS = 7
TYPES_PER_FILE = 10


def include(name):
    return f'<xs:include schemaLocation="{name}"/>\n'


def file_of_set(path, index, included):
    """A file with some types, which use a type of the first file included."""

    def components():
        yield from map(include, (f"part{other}.xsd" for other in included))
        for i in range(TYPES_PER_FILE):
            yield from complex_type(
                f"Part{index}_{i}", (element(f"Field{k}", builtin(k)) for k in range(5))
            )
        if included:
            link = [element("Link", f"tns:Part{included[0]}_0")]
            yield from complex_type(f"Part{index}_link", link)

    write_schema(path.parent / f"part{index}.xsd", components())


def main_of_set(path, included):
    names = [f"part{index}.xsd" for index in included]
    head = record("Head", [element("Link", f"tns:Part{included[0]}_link")])
    return write_schema(path, itertools.chain(map(include, names), head))


def layered_files(path, count):
    """A main file and `count` others in layers. Each includes two files of the
    layer below, so that the ways to a file double with every layer."""
    width = max(2, count // LAYERS)
    count = width * LAYERS
    for index in range(count):
        layer, place = divmod(index, width)
        below = (layer + 1) * width
        included = [below + place, below + (2 * place + 1) % width] if below < count else []
        file_of_set(path, index, included)
    return main_of_set(path, range(width))


def circular_files(path, count):
    """A main file and `count` others in one circle with chords across it."""
    for index in range(count):
        file_of_set(path, index, sorted({(index + 1) % count, (2 * index + 1) % count} - {index}))
    return main_of_set(path, [0])


def parts_of(main):
    """The other files of the set that a main file belongs to."""
    return sorted(main.parent.glob("part*.xsd"))


# Writer and file extension.
KINDS = {
    "many-types": (many_types, ".xsd"),
    "tiny": (tiny, ".xsd"),
    "elements-without-references": (elements_without_references, ".xsd"),
    "elements-with-references": (elements_with_references, ".xsd"),
    "flat-record": (flat_record, ".xsd"),
    "shared-names-record": (shared_names_record, ".xsd"),
    "nested-record": (nested_record, ".xsd"),
    "refused-items": (refused_items, ".xsd"),
    "enumeration": (enumeration, ".xsd"),
    "document": (document, ".xml"),
    "layered-files": (layered_files, ".xsd"),
    "circular-files": (circular_files, ".xsd"),
}
