# The value records of an undo file that a repair of the given findings has to hold, in their order:
# perl value_records.pl ROWS UNDO_FILE
#
# ROWS are rows of lvInvalidLoc from the key on. A finding without a record stands as a line that
# says so.
use strict;
use warnings;

# These are repaired as a value; an interface, a type library and a class only when there is a name.
my %always  = map { $_ => 1 } qw(HELP DLL FONT STARTUP);
my %by_name = map { $_ => 1 } qw(INTERFACE LIB CLSID);

# A row as it stands in the file, which is in an 8-bit code page: any byte for what is not ASCII.
sub pattern {
    my ($text) = @_;
    utf8::decode($text);
    return join '', map { ord $_ > 126 ? '[^\r\n]' : quotemeta } split //, $text;
}

my ($rows_file, $undo_file) = @ARGV;
open my $rows, '<:raw', $rows_file or die "value_records: $rows_file: $!\n";
open my $file, '<:raw', $undo_file or die "value_records: $undo_file: $!\n";
my $undo = do { local $/; <$file> };

while (my $row = <$rows>) {
    chomp $row;
    my ($key, $name, undef, undef, undef, undef, $test) = split /\t/, $row, -1;
    next unless $always{$test} || $by_name{$test} && $name ne '';
    (my $written = $name) =~ s/\\/\\\\/g;
    my $start = pattern("[$key]\r\n" . ($name eq '' ? '@' : "\"$written\"") . '=');
    my $from = pos $undo // 0;
    if ($undo =~ /$start.*?\r\n\r\n/gs) {
        print $&;
    } else {
        print "NO RECORD of $key $name\n";
        pos($undo) = $from;
    }
}
