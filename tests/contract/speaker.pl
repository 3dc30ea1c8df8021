#!/usr/bin/env perl
# speaker.pl LIBRARY
# Answers create, invoke and release as `quorkit rpc` does, through the C interface by FFI::Platypus.
use v5.36;
use B;
use Cpanel::JSON::XS;
use FFI::Platypus 2.00;
use FFI::Platypus::Buffer qw(buffer_to_scalar);
use List::Util qw(all first pairmap);
use MIME::Base64;
use Scalar::Util qw(blessed);
use Time::Local qw(timegm_modern);
no warnings qw(experimental::builtin nonchar surrogate);

my $ffi = FFI::Platypus->new(api => 2, lib => $ARGV[0]);
my %type = (p => 'opaque', s => 'string', n => 'size_t', i => 'int', u => 'uint', h => 'sint16', d => 'double');
$type{uc $_} = "$type{$_}*" for keys %type;
$type{b} = 'int[4]';    # bounds: lower and count of two dimensions
# What follows the library; handles are pointers, and a capital is a pointer to a place.
my %function = pairmap { $a => $ffi->function("quorkit_$a" => ['opaque', map { $type{$_} } split //, $b] => 'int') } (
    new => 'sP', new_collection => 'P', new_dictionary => 'P', new_picture => 'snP', new_foreign => 'spP',
    release_object => 'p', class_name => 'pS', identity => 'pN', elements => 'pp', call_name => 'psip',
    new_values => 'P', release_values => 'p', count => 'pN', kind_of => 'pnI', set_name => 'pns', set_key => 'pnpi',
    set_empty => 'pn', set_null => 'pn', set_error => 'pnu', set_boolean => 'pni', set_integer => 'pnh',
    set_long => 'pni', set_double => 'pnd', set_date => 'pnd', set_utf8 => 'pnsn', set_object => 'pnp',
    set_bytes => 'pnsni', set_array => 'pnpiib', get_error => 'pnU', get_boolean => 'pnI', get_integer => 'pnH',
    get_long => 'pnI', get_double => 'pnD', get_date => 'pnD', get_utf8 => 'pnPN', get_bytes => 'pnPN',
    get_object => 'pnP', get_bounds => 'pnIb', get_elements => 'pnp');
my $error_text = $ffi->function(quorkit_error_text => ['opaque'] => 'string');
my $error_argument = $ffi->function(quorkit_error_argument => ['opaque'] => 'size_t');
my ($TEXT_ARRAY, $BYTE_ARRAY, $VALUE_ARRAY) = 9 .. 11;
my $MISSING = 0x80020004;
my %kind_of_call = (call => 0, get => 1, let => 2);
my $json = Cpanel::JSON::XS->new->ascii->allow_nonref;
$ffi->function(quorkit_open => ['opaque*'] => 'int')->call(\my $library);

# A handle that is given back when nobody has it any more.
package Handle {
    sub new ($class, $release, $number) { bless {release => $release, number => $number}, $class }
    sub DESTROY ($self) { $function{$self->{release}}->call($library, $self->{number}) }
}

sub refused ($number, $argument = 0, $text = '') { {number => $number, argument => $argument, text => $text} }

sub ask ($name, @arguments) {
    my $outcome = $function{$name}->call($library, map { blessed $_ ? $_->{number} : $_ } @arguments);
    return if !$outcome;
    utf8::decode(my $text = $error_text->call($library));
    die refused($outcome, $error_argument->call($library), $text);
}

# What a function gives through its last pointer.
sub got ($name, @arguments) { ask($name, @arguments, \my $place); $place }
sub block ($name, @arguments) { ask($name, @arguments, \my $start, \my $length); buffer_to_scalar($start, $length) }
sub new_object ($name, @arguments) { Handle->new(release_object => got($name, @arguments)) }

sub new_values (@content) {
    my $values = Handle->new(release_values => got('new_values'));
    write_value($values, $_, $content[$_ - 1]) for 1 .. @content;
    return $values;
}

sub call ($object, $name, @arguments) {
    my $values = new_values(@arguments);
    ask('call_name', $object, $name, $kind_of_call{call}, $values);
    return $values;
}

# From JSON.

sub decode ($line) {
    utf8::decode($line);
    # The decoder takes no surrogate without a partner as \ud800.
    $line =~ s/(\\u[dD][89abAB]..\\u[dD][c-fC-F]..|\\[^u]|\\u(?![dD][89a-fA-F]))|\\u(....)/$1 \/\/ chr hex $2/ge;
    return $json->decode($line);
}

my (%objects, %foreign);    # by number
my $last = 0;

sub known ($number) { $objects{$number} // die refused(424) }

sub days_of ($text) {
    my ($year, $month, $day, $hour, $minute, $second) = $text =~ /\d+(?:\.\d+)?/g;
    my $whole = timegm_modern(0, 0, 0, $day, $month - 1, $year) / 86_400 + 25_569;
    my $clock = ((($hour // 0) * 60 + ($minute // 0)) * 60 + ($second // 0)) / 86_400;
    return $whole < 0 ? $whole - $clock : $whole + $clock;
}

sub is_text ($value) { defined $value && !ref $value && !builtin::created_as_number($value) }

sub array ($items, @bounds) {
    my $kind = @$items && (all { is_text($_) } @$items) ? $TEXT_ARRAY : $VALUE_ARRAY;
    return array => new_values(@$items), $kind, @$items ? @bounds / 2 : 0, [@bounds, (0) x (4 - @bounds)];
}

sub utf8_of ($text) { utf8::encode($text); $text }    # of surrogates too
sub counted ($bytes) { $bytes, length $bytes }

sub filled ($object, @additions) {
    call($object, 'Add', @$_) for @additions;
    return object => $object;
}

# Which function sets a value, and with what; by tag.
my %setter = (
    missing => sub (@) { error => $MISSING },
    null => sub (@) { 'null' },
    nothing => sub (@) { object => undef },
    object => sub ($number, $) { object => known($number) },
    date => sub ($date, $) { date => is_text($date) ? days_of($date) : $date },
    array => sub ($items, $lower) { array($items, $lower // 0, scalar @$items) },
    table => sub ($rows, $lower) {
        my ($columns, $lines) = @{$lower // [0, 0]};
        array([map { @$_ } @$rows], $columns, scalar @{$rows->[0] // []}, $lines, scalar @$rows);
    },
    bytes => sub ($text, $lower) { $text eq '' ? (bytes => undef, 0, 0) : (bytes => counted(decode_base64($text)), $lower // 0) },
    collection => sub ($entries, $) {
        filled(new_object('new_collection'), map { [$_->{item}, $_->{key} // ()] } @$entries);
    },
    dictionary => sub ($pairs, $) { filled(new_object('new_dictionary'), @$pairs) },
    picture => sub ($text, $) { object => new_object('new_picture', counted(decode_base64($text))) });

sub setter ($value) {
    return 'empty' if !defined $value;
    return boolean => $value ? 1 : 0 if Cpanel::JSON::XS::is_bool($value);
    return $setter{array}->($value, 0) if ref $value eq 'ARRAY';
    if (ref $value) {
        my $tag = first { $_ ne 'lower' } keys %$value;
        return $setter{$tag} ? $setter{$tag}->($value->{$tag}, $value->{lower}) : %$value;    # integer, error
    }
    return utf8 => counted(utf8_of($value)) if is_text($value);
    my $whole = B::svref_2object(\$value)->FLAGS & B::SVf_IOK;    # 5, not 5.0
    return ($whole && $value >= -2**31 && $value < 2**31 ? 'long' : 'double') => $value;
}

sub write_value ($values, $index, $value) {
    my ($kind, @content) = setter($value);
    ask("set_$kind", $values, $index, @content);
}

# To JSON, as text.

sub tagged ($tag, $content) { qq({"$tag":$content}) }
sub list (@texts) { '[' . join(',', @texts) . ']' }

# 5.0 is not 5, and encoders round.
sub double ($number) {
    return 'null' if $number - $number != 0;
    my $text = sprintf '%.17g', $number;
    return $text =~ /[.e]/ ? $text : "$text.0";
}

sub read_all ($values) {
    map { read_value($values, $_) } 1 .. got('count', $values);
}

sub elements ($name, @arguments) {
    my $values = new_values();
    ask($name, @arguments, $values);
    return read_all($values);
}

sub number_of ($object) {
    my $identity = got('identity', $object);
    my $number = first { got('identity', $objects{$_}) == $identity } keys %objects;
    $objects{$number = ++$last} = $object if !defined $number;
    return $number;
}

sub iso_date ($days) {
    my $whole = int $days;
    my $clock = int(abs($days - $whole) * 86_400_000 + 0.5);
    my ($second, $minute, $hour, $day, $month, $year) =
      abs $days < 1e7 ? gmtime(($whole - 25_569) * 86_400 + int $clock / 1000) : ();
    return double($days) if !defined $year || $year < 100 - 1900 || $year > 9999 - 1900;
    my $rest = $clock % 1000 ? sprintf '.%03d', $clock % 1000 : '';
    return sprintf '"%04d-%02d-%02dT%02d:%02d:%02d%s"', $year + 1900, $month + 1, $day, $hour, $minute, $second, $rest;
}

sub base64 (@place) { '"' . encode_base64(block(@place), '') . '"' }

sub read_array (@place) {
    ask('get_bounds', @place, \my $dimensions, my $bounds = [(0) x 4]);
    my ($lower, $width, $lower2, $height) = @$bounds;
    $height = 1 if $dimensions == 1;
    return '{"array":[],"lower":0}' if !$dimensions || !$width || !$height;
    return sprintf '{"bytes":%s,"lower":%d}', base64('get_bytes', @place), $lower
      if got('kind_of', @place) == $BYTE_ARRAY;
    my @items = elements('get_elements', @place);
    return sprintf '{"array":%s,"lower":%d}', list(@items), $lower if $dimensions == 1;
    my @rows = map { list(splice @items, 0, $width) } 1 .. $height;
    return sprintf '{"table":%s,"lower":[%d,%d]}', list(@rows), $lower, $lower2;
}

sub read_text (@place) {
    utf8::decode(my $text = block('get_utf8', @place));
    return $json->encode($text);
}

sub entry ($collection, $position, $item) {
    ask('set_key', my $values = new_values(), 0, $collection, $position);
    my $key = read_value($values, 0);
    return $key eq '""' ? tagged('item', $item) : qq({"key":$key,"item":$item});
}

sub read_object (@place) {
    my $number = got('get_object', @place) // return tagged('nothing', 'true');
    my $object = Handle->new(release_object => $number);
    my $class = got('class_name', $object);
    if ($class eq 'Collection') {
        my @items = elements('elements', $object);
        return tagged('collection', list(map { entry($object, $_, $items[$_ - 1]) } 1 .. @items));
    }
    if ($class eq 'Dictionary') {
        my @items = elements('get_elements', call($object, 'Items'), 0);
        return tagged('dictionary', list(map { list($_, shift @items) } elements('elements', $object)));
    }
    return tagged('picture', base64('get_bytes', call($object, 'File'), 0)) if $class eq 'Picture';
    return tagged('object', number_of($object));
}

my @reader = (    # by kind
    sub (@) { 'null' },
    sub (@) { tagged('null', 'true') },
    sub (@place) {
        my $code = got('get_error', @place);
        return $code == $MISSING ? tagged('missing', 'true') : tagged('error', $code);
    },
    sub (@place) { got('get_boolean', @place) ? 'true' : 'false' },
    sub (@place) { tagged('integer', got('get_integer', @place)) },
    sub (@place) { got('get_long', @place) },
    sub (@place) { double(got('get_double', @place)) },
    sub (@place) { tagged('date', iso_date(got('get_date', @place))) },
    \&read_text, (\&read_array) x 3, \&read_object);

sub read_value (@place) { $reader[got('kind_of', @place)]->(@place) }

# Objects of our own, which have properties.

sub called ($data, $, $name, $kind, $values) {
    my $let = $kind == $kind_of_call{let};
    utf8::decode($name);
    return 438 if !exists $foreign{$data}{lc $name};
    return 450 if got('count', $values) != $let;
    eval {
        if ($let) { $foreign{$data}{lc $name} = decode(read_value($values, 1)) }
        else { write_value($values, 0, $foreign{$data}{lc $name}) }
        1;
    } or return ref $@ ? $@->{number} : 51;
    return 0;
}

my $called = $ffi->closure(\&called);
my $released = $ffi->closure(sub ($data) { delete $foreign{$data} });
my $class_name = 'Object';
my $ours = pack 'pJJ', $class_name,
  $ffi->cast('(opaque,opaque,string,int,opaque)->int' => 'opaque', $called),
  $ffi->cast('(opaque)->void' => 'opaque', $released);

sub new_foreign ($properties) {
    $foreign{++$last} = {map { lc, $properties->{$_} } keys %$properties};
    return new_object('new_foreign', $ours, $last);
}

sub answer ($method, $params) {
    if ($method eq 'release') {
        delete $objects{$params->{object}};
        return 'null';
    }
    my $object = $params->{object} ? known($params->{object})
      : $params->{class} ? new_object('new', utf8_of($params->{class})) : new_foreign($params->{properties});
    return tagged('object', number_of($object)) if $method eq 'create';
    my ($args, $named) = ($params->{args} // [], $params->{named} // {});
    my @names = keys %$named;
    my $values = new_values(@$args, @$named{@names});
    ask('set_name', $values, @$args + $_, utf8_of($names[$_ - 1])) for 1 .. @names;
    ask('call_name', $object, utf8_of($params->{member}), $kind_of_call{$params->{kind} // 'call'}, $values);
    return sprintf '{"result":%s,"args":%s}', read_value($values, 0), list(read_all($values));
}

$| = 1;
while (my $line = <STDIN>) {
    my $request = decode($line);
    my $outcome = eval { tagged('result', answer(@$request{qw(method params)})) };
    if (!defined $outcome) {
        die $@ if !ref $@;
        my $code = $@->{number} > 0 ? -32000 : -32602;
        $outcome = tagged('error', $json->encode({code => $code, message => $@->{text}, data => $@}));
    }
    say qq({"jsonrpc":"2.0","id":$request->{id},), substr $outcome, 1;
}
%objects = ();
exit $ffi->function(quorkit_close => ['opaque'] => 'int')->call($library);
