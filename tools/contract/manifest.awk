# Writes the manifest with which a host uses the library where nothing is registered: every class, program name,
# interface and the type library, as registration writes them. The assembly has the version of the contract, not that of
# the file: a host's own manifest names it, and is to stay as it is when a newer file takes the place of an older one.
#
# usage: awk -v processor=x86|amd64 -f tools/contract/idl.awk -f tools/contract/manifest.awk
#        KivControls.idl contract/*.idl

function begin_type(kind, name, attributes) {
    type_kind = kind
    type_name = name
    if (kind == "library") {
        library = name
        library_id = "{" uuid_of(attributes) "}"
        match(attributes, /version\([0-9.]*\)/)
        version = substr(attributes, RSTART + 8, RLENGTH - 9)
    } else if (kind == "coclass") {
        classes[++class_count] = name
        id[name] = "{" uuid_of(attributes) "}"
    } else if (kind ~ /interface$/) {
        interfaces[++interface_count] = name
        id[name] = "{" uuid_of(attributes) "}"
    }
}

function take_member(attributes, text) {}

function end_type() {}

function write_class(name) {
    print "    <comClass"
    print "      clsid=\"" id[name] "\""
    print "      description=\"" library "." name "\""
    print "      progid=\"" library "." name ".1\""
    print "      threadingModel=\"Apartment\""
    print "      tlbid=\"" library_id "\""
    # What registration writes as MiscStatus\1, in words.
    print "      miscStatusContent=\"recomposeonresize,cantlinkinside,insideout,activatewhenvisible,setclientsitefirst\">"
    print "      <progid>" library "." name "</progid>"
    print "    </comClass>"
}

# Marshalled by what reads the type library.
function write_interface(name) {
    print "  <comInterfaceExternalProxyStub"
    print "    name=\"" name "\""
    print "    iid=\"" id[name] "\""
    print "    proxyStubClsid32=\"" (name ~ /^__/ ? "{00020420-0000-0000-C000-000000000046}" \
                                                 : "{00020424-0000-0000-C000-000000000046}") "\""
    print "    tlbid=\"" library_id "\"/>"
}

function finish(    i) {
    print "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>"
    print "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">"
    print "  <assemblyIdentity type=\"win32\" name=\"KivCtls\" version=\"" version ".0.0\" processorArchitecture=\"" processor "\"/>"
    print "  <file name=\"KivCtls.ocx\">"
    print "    <typelib tlbid=\"" library_id "\" version=\"" version "\" helpdir=\"\" flags=\"HASDISKIMAGE\"/>"
    for (i = 1; i <= class_count; ++i)
        write_class(classes[i])
    print "  </file>"
    for (i = 1; i <= interface_count; ++i)
        write_interface(interfaces[i])
    print "</assembly>"
}
